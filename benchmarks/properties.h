#ifndef PROPERTIES_H
#define PROPERTIES_H

#include <QString>

#include <string>
#include <vector>

/// The values behind a page: groups of ten, of which five are texts, two flags, two choices and one a fixed text.
class CProperties
{
public:
    enum eKind
    {
        eText,
        eFlag,
        eChoice,
        eFixed,
    };

    enum
    {
        eGroupSize = 10,
        eChoices = 5,
    };

    struct sProperty
    {
        eKind kind;
        std::string label;
        std::string text; ///< of a text, a fixed text, and of a choice its present value
        bool flag;
        int choice;
    };

    explicit CProperties(int in_iCount);

    int Count() const { return static_cast<int>(m_properties.size()); }
    const sProperty& operator[](int in_iIndex) const { return m_properties[static_cast<std::size_t>(in_iIndex)]; }

    /// Gives a property a value other than its present one.
    void Change(int in_iIndex);

    static std::string ChoiceText(int in_iChoice);
    static std::string GroupTitle(int in_iFirst);
    static QString Shown(const std::string& in_strText) { return QString::fromLatin1(in_strText.c_str()); }

private:
    std::vector<sProperty> m_properties;
    int m_iChanges = 0;
};

#endif
