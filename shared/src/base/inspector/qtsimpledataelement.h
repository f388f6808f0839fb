#ifndef QTSIMPLEDATAELEMENT_H
#define QTSIMPLEDATAELEMENT_H

#include "inspectordataelement.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

/// A value held as text. Derive from it: load the value in Connect, react to the user's changes in
/// InternalValueChanged.
class INSPECTOR_EXPORT CSimpleDataElement : public CInspectorDataElement, public ISimpleDataProvider
{
public:
    using CInspectorDataElement::OnCtrlValueChange;

    const char* GetType() override; ///< "qt.simple.data"

    /// Sets the value to the placeholder "Default"; an override loads the real one.
    void Connect() override;

    /// Empties the value.
    void Disconnect() override;

    void InternalValueChanged() override;

    /// Called by the widget when the user may have changed the text: takes it over from the widget and calls
    /// InternalValueChanged, but only if it differs and the element is not read-only.
    virtual void OnCtrlValueChange();

    void GetDataAsString(std::string& out_strValue) override;

    /// The widget as a source of text; null without a widget, or with one that gives none.
    ISimpleDataProvider* GetSafeControlDataProvider();

protected:
    std::string m_strValue; ///< after changing it call UpdateData
};

/// A value that is true or false, shown by a CQTSimpleBoolWidget.
class INSPECTOR_EXPORT CBoolDataElement : public CInspectorDataElement
{
public:
    using CInspectorDataElement::OnCtrlValueChange;

    const char* GetType() override; ///< "qt.bool.data"

    /// Sets the value to false; an override loads the real one.
    void Connect() override;

    /// Keeps the value.
    void Disconnect() override;

    /// Called by the widget when the user toggled it: takes its value over and calls InternalValueChanged if it
    /// differs. Nothing happens with a widget that is no CQTSimpleBoolWidget. Being read-only is the widget's affair.
    virtual void OnCtrlValueChange();

    /// The value as last stored; false before that.
    virtual bool GetValue();

    /// Stores the value. Neither notifies anybody nor refreshes the widget: call UpdateData afterwards.
    virtual void SetValue(bool in_bValue);

private:
    bool m_bValue = false;
};

/// A push button that runs a command of the controller. The application fills the members.
class INSPECTOR_EXPORT CButtonDataElement : public CInspectorDataElement
{
public:
    const char* GetType() override; ///< "qt.button.data"

    /// The button was pressed: passes the command to CInspectorController::CallCommand if enabled. The command may
    /// destroy the button.
    void OnCtrlValueChange(CInspectorDataWidget* in_pWidget) override;

    std::string m_strCaption;       ///< the text on the button
    std::string m_strCommand;       ///< the command's name
    std::uint64_t m_ulArgument = 0; ///< passed with the command
    bool m_bEnabled = true;         ///< false: painted disabled, pressing does nothing
};

/// A text that is only shown.
class INSPECTOR_EXPORT CStaticDataElement : public CInspectorDataElement
{
public:
    /// An empty text, to the left and vertically centred.
    CStaticDataElement();

    /// \param in_iAlignment Qt's alignment and text flags
    CStaticDataElement(const std::string& in_strText, int in_iAlignment);

    const char* GetType() override; ///< "qt.static.data"

    std::string m_strText;
    int m_iAlignment; ///< Qt's alignment and text flags, handed to the drawing as they stand
};

/// A value that is one of several choices. The choices are the element's own (CreateEnum, then AddEnum) or lent by the
/// application (SetExternalEnum), so that many elements can share them.
class INSPECTOR_EXPORT CEnumDataElement : public CSimpleDataElement
{
public:
    /// The order in which sEnumDefinition::GetAllItems gives the choices. Other values mean eSortNone.
    enum eSortingMethod : int
    {
        eSortOnValue = 0,          ///< by value, byte by byte: upper before lower case, 10 before 9
        eSortOnDisplay = 1,        ///< by display text, byte by byte
        eSortNone = 2,             ///< as they were added
        eSortOnNumericalValue = 3, ///< by the number, cut to 32 bits, that the value starts with; 0 without one
    };

    /// The choices: value texts and what is shown for them. Texts are byte strings.
    struct INSPECTOR_EXPORT sEnumDefinition
    {
        /// One choice.
        struct sEnumItem
        {
            std::string value;
            std::string display;
        };

        /// The order eSortOnValue.
        struct INSPECTOR_EXPORT SortEnumItemOnValue
        {
            bool operator()(const sEnumItem& in_first, const sEnumItem& in_second) const;
        };

        /// The order eSortOnDisplay.
        struct INSPECTOR_EXPORT SortEnumItemOnDisplay
        {
            bool operator()(const sEnumItem& in_first, const sEnumItem& in_second) const;
        };

        /// The order eSortOnNumericalValue.
        struct INSPECTOR_EXPORT SortEnumItemOnNumericalValue
        {
            bool operator()(const sEnumItem& in_first, const sEnumItem& in_second) const;
        };

        /// Adds a choice. A value added before is offered twice; looking it up gives the latest display text.
        void AddItem(const std::string& in_strValue, const std::string& in_strDisplay);

        /// Makes every look-up fail. The choices offered so far stay, and later ones come after them.
        void Clear();

        /// The display text of a value, empty for an unknown one.
        std::string GetDisplayFromValue(const std::string& in_strValue);

        /// Replaces `out_items` by all choices. Those that compare equal come in no particular order.
        void GetAllItems(eSortingMethod in_eMethod, std::vector<sEnumItem>& out_items);

        std::map<std::string, std::string> displays; ///< value to display text
        std::vector<sEnumItem> items;                ///< every choice ever added
    };

    CEnumDataElement() = default;
    ~CEnumDataElement() override;

    const char* GetType() override; ///< "qt.simple.enum"

    /// Replaces `out_strDisplay` by the display text of a value (not null), empty for an unknown one.
    virtual void GetDisplayString(const char* in_strValue, std::string& out_strDisplay);

    /// Gives the element an empty definition of its own, in place of the present one.
    void CreateEnum();

    /// Clears the present definition (see sEnumDefinition::Clear), a lent one for all who share it.
    void ClearEnum();

    /// Adds a choice to the present definition, a lent one for all who share it. Without a definition nothing happens.
    /// The texts must not be null.
    void AddEnum(const char* in_strValue, const char* in_strDisplay);

    /// Makes the element use a definition that the caller owns and that outlives the element; null for none.
    void SetExternalEnum(sEnumDefinition* in_pDefinition);

    sEnumDefinition* m_pDefinition = nullptr; ///< the present definition, null for none; to be read only

protected:
    bool m_bOwnsDefinition = false; ///< made by CreateEnum, deleted by this element

private:
    void ReleaseDefinition();
};

#endif
