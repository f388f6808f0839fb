#include "pictures.h"

#include "inspectorhost.h"
#include "mainwindow.h"
#include "qtcompat.h"
#include "qtsimpledatawidget.h"
#include "stage.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QSlider>
#include <QStyle>
#include <QTabWidget>

#include <cstdio>

namespace
{
/// Looks alike wherever it runs.
void SetUpLook(bool in_bDark)
{
    QApplication::setStyle(QLatin1String("Fusion"));
    QApplication::setPalette(in_bDark ? QPalette(QColor(60, 60, 60), QColor(45, 45, 45))
                                      : QApplication::style()->standardPalette());
    QFont font(QLatin1String("DejaVu Sans"));
    font.setPixelSize(13);
    QApplication::setFont(font);
}

class CPictures
{
public:
    explicit CPictures(const QString& in_strDirectory);

    bool Write(bool in_bDark);

private:
    template <class Widget> void Select();
    void ScrollTo(const char* in_strRow);
    void PressRow(const char* in_strRow);
    void SaveProperties();
    void Save(const char* in_strName, QWidget* in_pEditor = nullptr);

    CMainWindow m_window;
    QDir m_directory;
    bool m_bAllSaved = true;
};

/// An open list stays on the screen, which is small at a large scale factor: the inspector has to be on it.
CPictures::CPictures(const QString& in_strDirectory) : m_directory(in_strDirectory)
{
    m_window.move(-400, -150);
    m_window.show();
}

/// The page is there already when it becomes dark, and has to follow.
bool CPictures::Write(bool in_bDark)
{
    Select<QSlider>();
    SetUpLook(in_bDark);
    SaveProperties();
    Save("page");
    PressRow("value");
    CQTSimpleDataWidget::g_pInPlace->insert(QLatin1String("75"));
    Save("editing", CQTSimpleDataWidget::g_pInPlace);
    PressRow("tickPosition");
    Save("list", CQTEnumDataWidget::g_pInPlaceList.get());
    CQTEnumDataWidget::g_pInPlaceList->OnFinishEditing();
    ScrollTo("styleSheet");
    Save("scrolled");
    m_window.GetInspector().SetPreviewMode(true);
    Save("preview");
    m_window.GetInspector().SetPreviewMode(false);
    m_window.GetStage()->Select(nullptr);
    Save("message");
    Select<QPushButton>();
    m_window.GetStage()->findChild<QPushButton*>()->setEnabled(false);
    Save("commands");
    return m_bAllSaved;
}

template <class Widget> void CPictures::Select()
{
    m_window.GetStage()->Select(m_window.GetStage()->findChild<Widget*>());
}

void CPictures::ScrollTo(const char* in_strRow)
{
    QWidget* pRow = m_window.GetHost()->findChild<QWidget*>(QLatin1String(in_strRow));
    m_window.GetHost()->GetView()->EnsureVisible(dynamic_cast<CInspectorDataWidget*>(pRow));
}

void CPictures::PressRow(const char* in_strRow)
{
    QWidget* pRow = m_window.GetHost()->findChild<QWidget*>(QLatin1String(in_strRow));
    const QPoint centre = pRow->rect().center();
    QMouseEvent press(QEvent::MouseButtonPress, centre, pRow->mapToGlobal(centre), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(pRow, &press);
}

/// The property page is the first tab, where there is one; the other pictures show the last.
void CPictures::SaveProperties()
{
    QTabWidget* pTabs = m_window.GetTabs();
    if (pTabs->count() > 1)
    {
        pTabs->setCurrentIndex(0);
        Save("properties");
        pTabs->setCurrentIndex(1);
    }
}

/// An editor is a window of its own: it is painted over the main window where it stands.
void CPictures::Save(const char* in_strName, QWidget* in_pEditor)
{
    QApplication::processEvents();
    QImage image = QtCompat::ImageFor(m_window);
    QPainter painter(&image);
    m_window.render(&painter);
    if (in_pEditor)
    {
        in_pEditor->render(&painter, m_window.mapFromGlobal(in_pEditor->geometry().topLeft()));
    }
    painter.end();
    const QString strPath = m_directory.absoluteFilePath(QLatin1String(in_strName) + QLatin1String(".png"));
    m_bAllSaved = image.save(strPath) && m_bAllSaved;
    std::puts(strPath.toLocal8Bit().constData());
}
} // namespace

bool WritePictures(const QString& in_strDirectory, bool in_bDark)
{
    SetUpLook(false);
    return QDir().mkpath(in_strDirectory) && CPictures(in_strDirectory).Write(in_bDark);
}
