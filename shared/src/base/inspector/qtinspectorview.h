#ifndef QTINSPECTORVIEW_H
#define QTINSPECTORVIEW_H

#include "inspectorview.h"

#include <QColor>
#include <QScrollBar>
#include <QWidget>

#include <memory>
#include <string>

class CLabelWidths;
class CShapedTexts;
class CViewFilter;
class CViewKeyboard;
class CViewRows;
class QPainter;

/// The inspector as a Qt widget: scrolls, paints group frames, titles and labels, and lets the data widgets paint their
/// values.
///
/// The application puts it into a window, wires it to its controller, fills it (see CInspectorView) and calls
/// ResizeInspector whenever the space for it changes; a layout of Qt's resizes the widget only. Inside a handler that a
/// paint reached, and inside MoveWidget while the user scrolls, delete it by deleteLater; everywhere else at once.
class INSPECTOR_EXPORT CQTInspectorView : public QWidget, public CInspectorView
{
    Q_OBJECT

public:
    /// An empty view without a parent.
    CQTInspectorView();

    /// Deletes the data widgets in it, which are children of the content widget; their elements and items forget them.
    ~CQTInspectorView() override;

    /// Resizes the widget and lays out. The rightmost 20 pixels are kept free for the scroll bar. A height of -1 makes
    /// the view as tall as its content.
    void ResizeInspector(int in_iWidth, int in_iHeight) override;
    void UpdateView() override;

    /// Schedules a repaint of a data widget, which must not be null, as QWidget::update does; but it costs nothing for
    /// one out of sight, or about to be painted with its view. A page that updates thousands of widgets needs that.
    static void UpdateControl(QWidget* in_pControl);

    /// Scrolls as little as needed to show the widget's row; when that is taller than the view, its lower edge, unless
    /// the row begins above the view. Each QScrollArea that the view stands in then does the same.
    void EnsureVisible(CInspectorDataWidget* in_pWidget) override;

    /// Takes over what is being edited on this view, in place or in a row, as if its focus were lost; afterwards
    /// nothing is being edited here. To be called before a command, before saving and before the page is rebuilt: with
    /// its row, text that was typed is lost. What is reported may do anything, even delete the view.
    void FinishEditing();

    /// The metrics, in pixels, in preview mode too; override them for others.
    int GetGroupLeftMargin() override;      ///< 5
    int GetGroupRightMargin() override;     ///< 5
    int GetGroupTopMargin() override;       ///< 5
    int GetGroupBottomMargin() override;    ///< 5
    int GetGroupLabelHeight() override;     ///< 14
    int GetHeightBetweenControl() override; ///< 5

    /// The width of the label's text in the widget's font, and 2 pixels; 0 without a label.
    int GetElementLabelWidth(CInspectorView::sInspectorElement* in_pElement) override;

    /// Hiding takes the focus from a data widget, which then reports what was typed, and ends an edit in place.
    void OnToggleShowContent(bool in_bShow) override;
    void OnContentHeightSet() override;
    void ParentControlToInspector(CInspectorDataWidget* in_pWidget) override;

    /// Scrolls until the view begins with the content's pixel `in_iY`, or as near to it as the content of the last
    /// layout lets it; 0 is the beginning. A page that is built anew stays scrolled as the last one was: call
    /// `ScrollTo(0)` before its layout if it is another object's.
    void ScrollTo(int in_iY);

    /// Lets the page be worked by the keyboard alone; off at first. Tab and Shift+Tab enter the page, go from control
    /// to control in the order of the page, whatever their kind, and leave it at its ends; the page scrolls along. The
    /// control that has the focus shows it. Space toggles a box, presses a button and opens a list, Down and Alt+Down
    /// open a list too; in there the keys of a combo box choose, and a second press on the row closes it. Return and F2
    /// edit a line. A long text is left by Tab, which it cannot have typed into it then. Widgets of the application's
    /// own take part as their focus policies say.
    /// \param in_bReadOnlyToo whether Tab stops at read-only values, from which a line can be copied
    void SetKeyboardNavigation(bool in_bOn, bool in_bReadOnlyToo = true);

    /// Asked when Tab is about to stop at a control: override it to have some skipped. What is hidden, disabled or
    /// static is not asked for. True here.
    virtual bool IsTabStop(CInspectorDataWidget* in_pWidget);

    /// With the keyboard navigation on, moves the focus on, and goes on editing when it reaches a line.
    bool MoveFocusFrom(CInspectorDataWidget* in_pWidget, bool in_bForward) override;

    /// Nothing when the control, or an editor over it, has the focus already.
    void GiveFocusTo(CInspectorDataWidget* in_pWidget) override;

public Q_SLOTS:
    /// Scrolls to the scroll bar's value; the parameter is ignored.
    void SliderValueChanged(int value);

protected:
    void paintEvent(QPaintEvent* in_pEvent) override;
    bool focusNextPrevChild(bool in_bNext) override;

    QWidget* m_pContentWidget; ///< the parent of every data widget; owned
    QScrollBar* m_pScrollBar;  ///< owned

public:
    std::string
        m_strMessage;      ///< while not empty, painted in place of frames and labels; call UpdateView after a change
    QColor m_messageColor; ///< the message's colour; black while it is invalid

private:
    friend class CQTControl;
    friend class CAccessibleControl;
    friend class CAccessibleView;
    friend class CViewKeyboard;

    static CQTInspectorView* Of(const QWidget* in_pControl);
    void ShowInAreas(const QRect& in_row);
    void StartPage();
    void Reveal();
    void PreDraw();
    void PaintMessage(QPainter& in_painter);
    void PaintTree(QPainter& in_painter, const QRect& in_exposed);
    void PaintNode(QPainter& in_painter, const sInspectorElement& in_node, const QRect& in_exposed);
    void PaintGroup(QPainter& in_painter, const sInspectorElement& in_group, const QRect& in_exposed);
    QString LabelText(const sInspectorElement& in_row) const;

    CViewFilter* m_pFilter;
    std::unique_ptr<CViewRows> m_pRows;
    CViewKeyboard* m_pKeyboard = nullptr; ///< null without keyboard navigation
    std::unique_ptr<CLabelWidths> m_pLabelWidths;
    std::unique_ptr<CShapedTexts> m_pTexts;
    bool m_bPaintDue = false;     ///< a paint of the whole view was asked for and has not begun
    bool m_bAboutToPaint = false; ///< it has begun with having the notices handled
    bool m_bHeldBack = false;     ///< the content of a new page waits to be laid out
};

#endif
