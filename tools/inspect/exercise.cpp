#include "exercise.h"

#include "inspectwindow.h"
#include "objecttree.h"
#include "probe.h"
#include "propertypage.h"
#include "propertysource.h"
#include "randomvalue.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QUndoStack>

#include <algorithm>
#include <cstdio>

namespace
{
const int g_iTries = 1000; ///< to find something to edit

std::vector<tPropertyPtr> PropertiesOf(QObject* in_pObject)
{
    std::vector<tPropertyPtr> properties;
    for (const PropertySource::sGroup& group : PropertySource::OfObject(in_pObject))
    {
        properties.insert(properties.end(), group.properties.begin(), group.properties.end());
    }
    return properties;
}

bool IsProgramWindow(const QWidget* in_pWidget)
{
    return in_pWidget->isVisible() && !CApartWindow::Owns(in_pWidget);
}

/// Whether the object is one of several of which one is checked: checking it unchecks another, which no undo of its own
/// checks again.
bool IsOneOfSeveral(const QObject* in_pObject)
{
    const auto* pAction = qobject_cast<const QAction*>(in_pObject);
    const auto* pButton = qobject_cast<const QAbstractButton*>(in_pObject);
    return (pAction && pAction->actionGroup()) || (pButton && (pButton->group() || pButton->autoExclusive()));
}

bool CanEdit(const CProperty& in_property)
{
    const bool bChecks = in_property.Name() == QLatin1String("checked") && IsOneOfSeveral(in_property.Object());
    return !in_property.IsReadOnly() && !bChecks;
}

/// A button of a dialog's box that has one of these roles; null for none.
QAbstractButton* FindButton(const QWidget& in_dialog, std::initializer_list<QDialogButtonBox::ButtonRole> in_roles)
{
    const QList<QDialogButtonBox*> boxes = in_dialog.findChildren<QDialogButtonBox*>();
    for (const QDialogButtonBox* pBox : boxes)
    {
        const QList<QAbstractButton*> buttons = pBox->buttons();
        for (QAbstractButton* pButton : buttons)
        {
            if (std::count(in_roles.begin(), in_roles.end(), pBox->buttonRole(pButton)) > 0)
            {
                return pButton;
            }
        }
    }
    return nullptr;
}

/// Answers that nothing is to be saved, or closes it, or else says OK to one that does not let itself be closed.
void Dismiss(QWidget& io_dialog)
{
    QAbstractButton* pButton = FindButton(io_dialog, {QDialogButtonBox::DestructiveRole, QDialogButtonBox::NoRole});
    if (!pButton && !io_dialog.close())
    {
        pButton = FindButton(io_dialog, {QDialogButtonBox::AcceptRole});
    }
    pButton ? pButton->click() : void();
}

bool HasProgramWindow()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), IsProgramWindow);
}
} // namespace

void CExercise::BeginIfAsked(CProbe& in_probe)
{
    const int iEdits = qEnvironmentVariableIntValue("INSPECT_EXERCISE");
    const bool bAsked = qEnvironmentVariableIsSet("INSPECT_EXERCISE");
    qunsetenv("INSPECT_EXERCISE");
    if (bAsked)
    {
        (new CExercise(in_probe, iEdits))->setParent(&in_probe);
    }
}

CExercise::CExercise(CProbe& in_probe, int in_iEdits) : m_probe(in_probe), m_random(1), m_iEditsLeft(in_iEdits)
{
    connect(&m_timer, &QTimer::timeout, this, &CExercise::Step);
    m_timer.start(0);
}

/// A dialog that a step made the program show is dismissed, as nobody else would.
void CExercise::Step()
{
    QWidget* pDialog = QApplication::activeModalWidget();
    if (pDialog && (m_bInStep || m_bClosing))
    {
        ++m_iDialogs;
        Dismiss(*pDialog);
    }
    else if (!m_bInStep && (m_bClosing || HasProgramWindow()))
    {
        m_bInStep = true;
        Work();
        m_bInStep = false;
    }
}

void CExercise::Work()
{
    if (m_bClosing)
    {
        CloseProgram();
        return;
    }
    if (m_iNext == m_objects.size())
    {
        List();
    }
    if (m_iNext < m_objects.size())
    {
        Show(m_objects.at(m_iNext++));
    }
    else if (m_iEditsLeft > 0)
    {
        EditAny();
    }
    else
    {
        Report();
        m_bClosing = true;
    }
}

/// Adds the objects that are new since the last time.
void CExercise::List()
{
    const QList<QObject*> objects = m_probe.Window().Tree().Objects();
    for (QObject* pObject : objects)
    {
        if (!m_found.contains(pObject))
        {
            m_found.insert(pObject);
            m_objects << pObject;
        }
    }
}

void CExercise::Show(QObject* in_pObject)
{
    if (!in_pObject)
    {
        return;
    }
    m_probe.Window().Select(in_pObject);
    for (const tPropertyPtr& pProperty : PropertiesOf(in_pObject))
    {
        pProperty->Read();
        ++m_iRead;
    }
}

void CExercise::EditAny()
{
    --m_iEditsLeft;
    for (int i = 0; i < g_iTries; ++i)
    {
        QObject* pObject = m_objects.at(m_random.bounded(static_cast<int>(m_objects.size())));
        const std::vector<tPropertyPtr> properties = PropertiesOf(pObject);
        const tPropertyPtr pProperty =
            properties.empty() ? nullptr : properties[m_random.bounded(static_cast<quint32>(properties.size()))];
        const bool bWritable = pProperty && CanEdit(*pProperty);
        const QVariant value = bWritable ? RandomValue(*pProperty, pProperty->Read(), m_random) : QVariant();
        if (value.isValid())
        {
            m_probe.Window().Select(pObject);
            Edit(pProperty, value);
            return;
        }
    }
}

void CExercise::Edit(const tPropertyPtr& in_pProperty, const QVariant& in_value)
{
    const QVariant before = in_pProperty->Read();
    const QString strClass = QString::fromLatin1(in_pProperty->Object()->metaObject()->className());
    m_probe.Window().Page().Write(in_pProperty, in_value);
    QCoreApplication::processEvents();
    m_probe.Window().Page().UndoStack()->undo();
    QCoreApplication::processEvents();
    ++m_iEdits;
    if (in_pProperty->Object() && in_pProperty->Read() != before)
    {
        m_notUndone << strClass + QLatin1Char('.') + in_pProperty->Name();
    }
}

void CExercise::Report() const
{
    std::fprintf(stderr,
                 "inspect: %d objects selected, %d properties read, %d edits made and undone, %d dialogs closed\n",
                 static_cast<int>(m_found.size()), m_iRead, m_iEdits, m_iDialogs);
    if (!m_notUndone.isEmpty())
    {
        std::fprintf(stderr, "inspect: %d did not come back to the same value: %s\n",
                     static_cast<int>(m_notUndone.size()), qPrintable(m_notUndone.join(QLatin1String(", "))));
    }
}

/// The way a person closes a program; one that does not end by that is told to quit. Again at each step, as the program
/// may only now come to its event loop.
void CExercise::CloseProgram()
{
    QApplication::closeAllWindows();
    QCoreApplication::quit();
}
