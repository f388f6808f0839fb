/// A page of the property page library, as an application writes it.
/// \file

#include "subject.h"

#include "propertyview.h"

namespace
{
class CPropertySubject : public ISubject
{
public:
    CPropertySubject(QWidget* in_pWindow, const CProperties& in_properties)
        : ISubject(in_properties),
          m_view(in_pWindow)
    {
        for (int i = 0; i < CProperties::eChoices; ++i)
        {
            const QString strChoice = CProperties::Shown(CProperties::ChoiceText(i));
            m_choices.push_back({strChoice, strChoice});
        }
    }

    void Resize(const QSize& in_size) override { m_view.resize(in_size); }

    void Build() override
    {
        CPropertyGroup group;
        for (int i = 0; i < m_properties.Count(); ++i)
        {
            if (i % CProperties::eGroupSize == 0)
            {
                group = m_view.Page().AddGroup(CProperties::Shown(CProperties::GroupTitle(i)));
            }
            m_rows.push_back(AddRow(group, m_properties[i]));
        }
    }

    void Clear() override
    {
        m_rows.clear();
        m_view.Page().Clear();
    }

    void Replace() override
    {
        Clear();
        Build();
    }

    void Update(int in_iRow) override { m_rows[static_cast<std::size_t>(in_iRow)].Refresh(); }
    void UpdateAll() override { m_view.Page().Refresh(); }
    bool CanFilter() override { return true; }
    void Filter(const QString& in_strWord) override { m_view.SetFilter(in_strWord); }
    QScrollBar* ScrollBar() override { return m_view.findChild<QScrollBar*>(); }

    QRect Control(int in_iRow) override
    {
        const QRect rect = m_view.ValueRect(m_rows[static_cast<std::size_t>(in_iRow)]);
        return rect.translated(m_view.mapTo(m_view.window(), QPoint()));
    }

    bool OpensOnPress(CProperties::eKind in_eKind) override
    {
        return in_eKind == CProperties::eText || in_eKind == CProperties::eChoice;
    }

private:
    CPropertyRow AddRow(CPropertyGroup& io_group, const CProperties::sProperty& in_property)
    {
        const QString strLabel = CProperties::Shown(in_property.label);
        const auto text = [&in_property] { return CProperties::Shown(in_property.text); };
        const auto setText = [](const QString&) {};
        switch (in_property.kind)
        {
        case CProperties::eText:
            return io_group.Add(strLabel, text, setText);
        case CProperties::eFlag:
            return io_group.Add(
                strLabel, [&in_property] { return in_property.flag; }, [](bool) {});
        case CProperties::eChoice:
            return io_group.Add(strLabel, text, setText).Choices(m_choices);
        case CProperties::eFixed:
            break;
        }
        return io_group.Add(strLabel, text);
    }

    CPropertyView m_view;
    QVector<sPropertyChoice> m_choices;
    std::vector<CPropertyRow> m_rows;
};
} // namespace

std::unique_ptr<ISubject> CreatePropertySubject(QWidget* in_pWindow, const CProperties& in_properties)
{
    return std::unique_ptr<ISubject>(new CPropertySubject(in_pWindow, in_properties));
}
