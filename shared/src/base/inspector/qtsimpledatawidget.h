#ifndef QTSIMPLEDATAWIDGET_H
#define QTSIMPLEDATAWIDGET_H

#include "inspectordataelement.h"
#include "qtsimpledataelement.h"

#include <QLineEdit>
#include <QListWidget>
#include <QTextEdit>
#include <QWidget>

#include <memory>
#include <string>

class CInPlaceKeeper;
class QPainter;

/// What the one-line data widgets have in common.
class INSPECTOR_EXPORT CQTControl : public QWidget
{
    friend class CViewKeyboard;

protected:
    /// Leaves to the view that the widget is in what is the view's to handle: the wheel scrolls it.
    bool event(QEvent* in_pEvent) override;

    /// Draws a text left-aligned and vertically centred as QPainter::drawText does, but faster once the view has drawn
    /// the same text.
    void PaintText(QPainter& in_painter, const QRect& in_rect, const QString& in_strText) const;
};

/// The line editor that all single-line values of the process share. It is a window of its own, laid over the widget
/// being edited; it follows that widget and ends when the widget goes out of sight.
///
/// Operations that start something else end a running edit first, which is reported to its own sink.
class INSPECTOR_EXPORT CInPlaceEdit : public QLineEdit
{
    Q_OBJECT

public:
    CInPlaceEdit();

    /// Sets who is told when editing ends; null for nobody. Not owned: a sink that is a Qt object may die, any other
    /// must be unset before.
    void SetSink(IInPlaceEditSink* in_pSink);

    /// Sets the text to edit, which is also the one that Escape brings back.
    void SetText(const char* in_strText);

    /// Starts editing: opens the editor over a rectangle given in the coordinates of `in_pOver`, which must not be
    /// null, takes the focus and selects all.
    void InPlaceEdit(QWidget* in_pOver, QRect in_rect);

    /// The text at the end of the last edit, or the last one set.
    const QString& GetText() const { return m_strText; }

    /// Ends editing without telling anybody, and hides the editor.
    void ReleaseInteraction();

    /// The model's value changed while `in_pSink` may be editing it: an edit in which nothing was typed shows the new
    /// value, and Escape brings it back in any case.
    void UpdateText(IInPlaceEditSink* in_pSink, const QString& in_strText);

    /// A sink is about to die: it is not told anything any more, and its edit ends.
    void ForgetSink(IInPlaceEditSink* in_pSink);

    /// Deletes the editor, later if it is in use.
    void Retire();

public Q_SLOTS:
    /// Ends editing, if it is going on: hides the editor, then tells the sink.
    void OnFinishEditing();

protected:
    bool event(QEvent* in_pEvent) override;

private:
    void FinishRunningEdit();
    void EndNestedEdit();
    bool ClaimKey(QEvent* in_pOverride);
    bool EndWith(CInspectorDataElement::eEndEditCause in_eCause);

    QString m_strInitialText;
    QString m_strText;
    IInPlaceEditSink* m_pSink = nullptr;
    bool m_bEditing = false;
    CInspectorDataElement::eEndEditCause m_eCause = CInspectorDataElement::eEndEditFocusLost;
    CInPlaceKeeper* m_pKeeper;
};

/// One line of text, edited in place. Pair it with a CSimpleDataElement; a press of the left button starts editing
/// unless the element is read-only.
class INSPECTOR_EXPORT CQTSimpleDataWidget : public CQTControl,
                                             public CInspectorDataWidget,
                                             public ISimpleDataProvider,
                                             public IInPlaceEditSink
{
    Q_OBJECT

public:
    CQTSimpleDataWidget();

    /// Typed text that was not reported yet is lost.
    ~CQTSimpleDataWidget() override;

    void InitFromElement() override;
    const char* GetType() override; ///< "qt.simple.edit"
    int GetRequiredWidth() override;
    int GetRequiredHeight(int in_iWidth) override;
    void ResizeWidget(int in_iWidth, int in_iHeight) override;
    void MoveWidget(int in_iX, int in_iY) override;
    void Show() override;
    void Hide() override;

    /// Opens the shared editor over the whole widget, read-only or not. An edit of another widget ends first.
    void StartEditing() override;

    /// The text shown; as long as it is the element's, byte for byte what the element gave.
    void GetDataAsString(std::string& out_strValue) override;

    /// Stores the text, lets the element take it over and tells it the cause. Either may destroy this widget.
    void FinishValueEdit(const char* in_strText, CInspectorDataElement::eEndEditCause in_eCause) override;

    void OnValueChange(CInspectorDataWidget::sValueChangeInfo* in_pInfo) override;

    /// The element; null when there is none or it is of another class.
    CSimpleDataElement* GetSafeSimpleData();

    /// The element as a source of text; null when there is none or it gives no text.
    ISimpleDataProvider* GetSafeControlDataProvider();

    static CInPlaceEdit* g_pInPlace; ///< the shared editor; null while no single-line value widget lives
    static int g_iInPlaceRefCount;   ///< how many single-line value widgets live

protected:
    void mousePressEvent(QMouseEvent* in_pEvent) override;
    void paintEvent(QPaintEvent* in_pEvent) override;
    void showEvent(QShowEvent* in_pEvent) override;
    void hideEvent(QHideEvent* in_pEvent) override;

    QString m_strValue; ///< the text shown

private:
    std::string m_strLoaded; ///< what the element gave last
};

/// A square box with a cross when the value is true; any mouse button toggles it unless the element is read-only. Pair
/// it with a CBoolDataElement.
class INSPECTOR_EXPORT CQTSimpleBoolWidget : public CQTControl, public CInspectorDataWidget
{
    Q_OBJECT

public:
    CQTSimpleBoolWidget();

    void InitFromElement() override;
    const char* GetType() override; ///< "qt.simple.bool"
    int GetRequiredWidth() override;
    int GetRequiredHeight(int in_iWidth) override;
    void ResizeWidget(int in_iWidth, int in_iHeight) override; ///< keeps to 20 pixels of height
    void MoveWidget(int in_iX, int in_iY) override;
    void Show() override;
    void Hide() override;
    void OnValueChange(CInspectorDataWidget::sValueChangeInfo* in_pInfo) override;

    /// The value shown.
    virtual bool GetValue();

    /// The element; null when there is none or it is of another class.
    CBoolDataElement* GetSafeData();

protected:
    void mousePressEvent(QMouseEvent* in_pEvent) override;
    void paintEvent(QPaintEvent* in_pEvent) override;

    bool m_bValue = false;
};

/// A text of several lines, edited in the row itself; it is handed to the element when the focus leaves. Pair it with a
/// CSimpleDataElement. A read-only element's text can be typed into, but the element keeps its value.
class INSPECTOR_EXPORT CQTSimpleTextWidget : public QTextEdit, public CInspectorDataWidget, public ISimpleDataProvider
{
    Q_OBJECT

public:
    CQTSimpleTextWidget();

    void InitFromElement() override;
    const char* GetType() override; ///< "qt.simple.text"
    int GetRequiredWidth() override;
    int GetRequiredHeight(int in_iWidth) override;
    void ResizeWidget(int in_iWidth, int in_iHeight) override;
    void MoveWidget(int in_iX, int in_iY) override;
    void Show() override;
    void Hide() override;

    /// Shows the element's text, which may be rich text. What the user is typing just now is kept instead.
    void OnValueChange(CInspectorDataWidget::sValueChangeInfo* in_pInfo) override;

    /// The plain text shown; as long as that is unchanged, byte for byte what the element gave.
    void GetDataAsString(std::string& out_strValue) override;

    /// The element; null when there is none or it is of another class.
    CSimpleDataElement* GetSafeData();

protected:
    /// Reports the text, unless the focus goes to the context menu. QTextEdit's own handling is left out on purpose.
    void focusOutEvent(QFocusEvent* in_pEvent) override;
    bool focusNextPrevChild(bool in_bNext) override;
    void focusInEvent(QFocusEvent* in_pEvent) override;

    /// While the text has the focus, a shortcut of the application's works on what was typed: reported before.
    bool eventFilter(QObject* in_pWatched, QEvent* in_pEvent) override;

private:
    void ReportText();
    void ShowLoaded(bool in_bReplaceText);

    std::string m_strLoaded;  ///< what the element gave last
    QString m_strShown;       ///< the plain text that was shown for the element's value
    bool m_bLeaving = false;  ///< reported already, and about to lose the focus
    bool m_bOutdated = false; ///< m_strLoaded came while something else was being typed
};

/// The drop-down list that all enumeration values of the process share: a tool-tip window under the widget being
/// edited. Choices are picked with the mouse; every key and a press elsewhere close it with the value it opened with.
class INSPECTOR_EXPORT CInPlaceList : public QListWidget
{
    Q_OBJECT

public:
    CInPlaceList();
    ~CInPlaceList() override;

    /// Ends a pending edit, which is reported to its own sink, then sets who is told; null for nobody. Not owned: a
    /// sink that is a Qt object may die, any other must be unset before.
    void SetSink(IInPlaceEditSink* in_pSink);

    /// The value that the next end of editing reports.
    const QString& GetValue() const { return m_strValue; }

    /// Appends a choice. Ignored when either text is null.
    void AddItem(const char* in_strValue, const char* in_strDisplay);

    /// Removes all choices; a pending edit is dropped without a report.
    void ClearList();

    /// Opens the list under a rectangle given in the coordinates of `in_pOver`, at least 100 pixels wide and with at
    /// most 15 rows in sight, kept on the desktop. The row that holds `in_strValue` becomes current. Neither pointer
    /// may be null.
    void InPlaceEdit(QWidget* in_pOver, const char* in_strValue, QRect in_rect);

    /// Ends editing, if it is going on: tells the sink, then hides the list unless the report opened it again.
    void OnFinishEditing();

    /// Deletes the list, later if it is in use; never once the application object is gone.
    static void Retire(CInPlaceList* in_pList);

public Q_SLOTS:
    /// Reports the item's value; a null item reports an empty one.
    void OnItemClicked(QListWidgetItem* in_pItem);

protected:
    bool event(QEvent* in_pEvent) override;

private:
    void SelectValue();
    QRect GeometryUnder(const QWidget* in_pOver, const QRect& in_rect) const;
    void Dismiss(CInspectorDataElement::eEndEditCause in_eCause);

    QString m_strInitialValue;
    QString m_strValue;
    IInPlaceEditSink* m_pSink = nullptr;
    bool m_bEditing = false;
    CInspectorDataElement::eEndEditCause m_eCause = CInspectorDataElement::eEndEditFocusLost;
    CInPlaceKeeper* m_pKeeper;
    bool m_bReported = false; ///< the present edit has been handed to the sink
    int m_iEdit = 0;          ///< counts the edits, to tell one from the next across a report
};

/// A closed drop-down that shows the display text of the value; a press of the left button opens the shared list, read-
/// only or not. Pair it with a CEnumDataElement.
class INSPECTOR_EXPORT CQTEnumDataWidget : public CQTControl,
                                           public CInspectorDataWidget,
                                           public ISimpleDataProvider,
                                           public IInPlaceEditSink
{
    Q_OBJECT

public:
    CQTEnumDataWidget();

    /// Closes an open list, whichever widget's it is; its opening value is reported.
    ~CQTEnumDataWidget() override;

    void InitFromElement() override;
    const char* GetType() override; ///< "qt.simple.enum", as its element
    int GetRequiredWidth() override;
    int GetRequiredHeight(int in_iWidth) override;
    void ResizeWidget(int in_iWidth, int in_iHeight) override;
    void MoveWidget(int in_iX, int in_iY) override;
    void Show() override;
    void Hide() override;

    /// The present value; as long as it is the element's, byte for byte what the element gave.
    void GetDataAsString(std::string& out_strValue) override;

    /// Stores the value, lets the element take it over and tells it the cause. Either may destroy this widget.
    void FinishValueEdit(const char* in_strText, CInspectorDataElement::eEndEditCause in_eCause) override;

    void OnValueChange(CInspectorDataWidget::sValueChangeInfo* in_pInfo) override;

    /// The element; null when there is none or it is of another class.
    CEnumDataElement* GetSafeEnumData();

    /// The element as a source of text; null when there is none or it gives no text.
    ISimpleDataProvider* GetSafeControlDataProvider();

    static std::shared_ptr<CInPlaceList> g_pInPlaceList; ///< the shared list; empty while no widget of the kind lives

protected:
    void mousePressEvent(QMouseEvent* in_pEvent) override;
    void paintEvent(QPaintEvent* in_pEvent) override;

    QString m_strValue;
    CEnumDataElement::eSortingMethod m_eSortingMethod = CEnumDataElement::eSortNone; ///< the order of the choices
    std::shared_ptr<CInPlaceList> m_pList;

private:
    bool LoadValue();

    std::string m_strLoaded; ///< what the element gave last
};

/// A push button, centred round its text. Any mouse button pressed on it passes the press to the element. Pair it with
/// a CButtonDataElement. It reads the element as it paints: after changing that, ask the view for a repaint
/// (UpdateView).
class INSPECTOR_EXPORT CQTButtonWidget : public CQTControl, public CInspectorDataWidget
{
    Q_OBJECT

public:
    CQTButtonWidget();

    const char* GetType() override; ///< "qt.button"
    void InitFromElement() override;
    int GetRequiredWidth() override;
    int GetRequiredHeight(int in_iWidth) override;
    void ResizeWidget(int in_iWidth, int in_iHeight) override; ///< keeps to 20 pixels of height
    void MoveWidget(int in_iX, int in_iY) override;
    void Show() override;
    void Hide() override;

    /// The element; null when there is none or it is of another class.
    CButtonDataElement* GetSafeData();

protected:
    void mousePressEvent(QMouseEvent* in_pEvent) override;
    void paintEvent(QPaintEvent* in_pEvent) override;

    QRect m_buttonRect; ///< where the button was last painted; only a press inside it counts
};

/// A text that cannot be edited. Pair it with a CStaticDataElement. It reads the element as it paints: after changing
/// that, ask the view for a repaint (UpdateView).
class INSPECTOR_EXPORT CQTStaticWidget : public CQTControl, public CInspectorDataWidget
{
    Q_OBJECT

public:
    CQTStaticWidget();

    const char* GetType() override; ///< "qt.static"
    void InitFromElement() override;
    int GetRequiredWidth() override;
    int GetRequiredHeight(int in_iWidth) override;
    void ResizeWidget(int in_iWidth, int in_iHeight) override; ///< keeps to 20 pixels of height
    void MoveWidget(int in_iX, int in_iY) override;
    void Show() override;
    void Hide() override;

    /// The element; null when there is none or it is of another class.
    CStaticDataElement* GetSafeData();

protected:
    void paintEvent(QPaintEvent* in_pEvent) override;
};

#endif
