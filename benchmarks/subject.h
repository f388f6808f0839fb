#ifndef SUBJECT_H
#define SUBJECT_H

#include "properties.h"

#include <QScrollBar>
#include <QWidget>

#include <memory>

/// One way to make a property page. It lives in a window of the stage and shows the properties given to it.
class ISubject
{
public:
    virtual ~ISubject();

    /// Fills the window's client area.
    virtual void Resize(const QSize& in_size) = 0;

    /// Makes the page, into an empty view that is visible already.
    virtual void Build() = 0;

    /// Takes the page away; the empty view stays.
    virtual void Clear() = 0;

    /// Puts a new page in place of the present one.
    virtual void Replace();

    /// Brings one changed property, or all of them, to the page.
    virtual void Update(int in_iRow) = 0;
    virtual void UpdateAll();

    /// Shows the rows with a word alone; an empty one: all.
    virtual bool CanFilter() { return false; }
    virtual void Filter(const QString&) {}

    virtual QScrollBar* ScrollBar() = 0;

    /// Where the control of a row that is in sight lies, in the window's coordinates; null for none.
    virtual QRect Control(int in_iRow) = 0;

    /// Whether a press on a control of this kind opens an editor.
    virtual bool OpensOnPress(CProperties::eKind in_eKind) = 0;

protected:
    explicit ISubject(const CProperties& in_properties) : m_properties(in_properties) {}

    static QRect InWindow(const QWidget* in_pWidget);

    const CProperties& m_properties;
};

typedef std::unique_ptr<ISubject> (*tCreateSubject)(QWidget* in_pWindow, const CProperties& in_properties);

std::unique_ptr<ISubject> CreateInspectorSubject(QWidget* in_pWindow, const CProperties& in_properties);
std::unique_ptr<ISubject> CreatePropertySubject(QWidget* in_pWindow, const CProperties& in_properties);
std::unique_ptr<ISubject> CreateFormSubject(QWidget* in_pWindow, const CProperties& in_properties);
std::unique_ptr<ISubject> CreateTreeSubject(QWidget* in_pWindow, const CProperties& in_properties);
std::unique_ptr<ISubject> CreateBareSubject(QWidget* in_pWindow, const CProperties& in_properties);

#endif
