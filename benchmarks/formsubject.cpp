/// The page that people write by hand: form layouts in group boxes in a scroll area. It is built without a parent and
/// shown once, which is the fastest way.
/// \file

#include "subject.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>

namespace
{
class CFormSubject : public ISubject
{
public:
    CFormSubject(QWidget* in_pWindow, const CProperties& in_properties) : ISubject(in_properties), m_area(in_pWindow)
    {
        m_area.setWidgetResizable(true);
        for (int i = 0; i < CProperties::eChoices; ++i)
        {
            m_choices << CProperties::Shown(CProperties::ChoiceText(i));
        }
    }

    void Resize(const QSize& in_size) override { m_area.resize(in_size); }

    void Build() override
    {
        m_controls.clear();
        QWidget* pPage = new QWidget;
        QVBoxLayout* pGroups = new QVBoxLayout(pPage);
        QFormLayout* pRows = nullptr;
        for (int i = 0; i < m_properties.Count(); ++i)
        {
            if (i % CProperties::eGroupSize == 0)
            {
                QGroupBox* pGroup = new QGroupBox(CProperties::Shown(CProperties::GroupTitle(i)));
                pRows = new QFormLayout(pGroup);
                pGroups->addWidget(pGroup);
            }
            m_controls.push_back(NewControl(m_properties[i].kind));
            Update(i);
            pRows->addRow(CProperties::Shown(m_properties[i].label), m_controls.back());
        }
        m_area.setWidget(pPage);
    }

    void Clear() override
    {
        m_controls.clear();
        delete m_area.takeWidget();
    }

    /// Building first lets the scroll area swap the pages at once.
    void Replace() override { Build(); }

    void Update(int in_iRow) override
    {
        const CProperties::sProperty& property = m_properties[in_iRow];
        QWidget* pControl = m_controls[static_cast<std::size_t>(in_iRow)];
        switch (property.kind)
        {
        case CProperties::eText:
            static_cast<QLineEdit*>(pControl)->setText(CProperties::Shown(property.text));
            break;
        case CProperties::eFlag:
            static_cast<QCheckBox*>(pControl)->setChecked(property.flag);
            break;
        case CProperties::eChoice:
            static_cast<QComboBox*>(pControl)->setCurrentIndex(property.choice);
            break;
        case CProperties::eFixed:
            static_cast<QLabel*>(pControl)->setText(CProperties::Shown(property.text));
            break;
        }
    }

    QScrollBar* ScrollBar() override { return m_area.verticalScrollBar(); }
    QRect Control(int in_iRow) override { return InWindow(m_controls[static_cast<std::size_t>(in_iRow)]); }

    bool OpensOnPress(CProperties::eKind in_eKind) override
    {
        return in_eKind == CProperties::eText || in_eKind == CProperties::eChoice;
    }

private:
    QWidget* NewControl(CProperties::eKind in_eKind) const
    {
        switch (in_eKind)
        {
        case CProperties::eText:
            return new QLineEdit;
        case CProperties::eFlag:
            return new QCheckBox;
        case CProperties::eFixed:
            return new QLabel;
        case CProperties::eChoice:
            break;
        }
        QComboBox* pCombo = new QComboBox;
        pCombo->addItems(m_choices);
        return pCombo;
    }

    QScrollArea m_area;
    QStringList m_choices;
    std::vector<QWidget*> m_controls; ///< by row
};
} // namespace

std::unique_ptr<ISubject> CreateFormSubject(QWidget* in_pWindow, const CProperties& in_properties)
{
    return std::unique_ptr<ISubject>(new CFormSubject(in_pWindow, in_properties));
}
