#ifndef PROPERTYAREA_H
#define PROPERTYAREA_H

/// Where the rows of a page are placed, painted and worked with mouse and keyboard. Private to the library.
/// \file

#include "linetexts.h"
#include "propertyfilter.h"
#include "propertyrows.h"
#include "propertystate.h"
#include "qtinspectorview.h"

#include <QHash>
#include <QPalette>
#include <QPixmap>

class CItemEditors;
class CPropertyControls;
class CPropertyEdit;
class QItemEditorFactory;
class QMenu;
class QStyleOptionButton;

class CPropertyArea : public CQTInspectorView, public IPropertyPageClient
{
    Q_OBJECT

public:
    /// What lies at a point.
    struct sHit
    {
        enum eZone
        {
            eNothing,
            eTitle,
            eLabel,
            eBorder, ///< between labels and values
            eValue,
            eReset, ///< the button that resets a modified value
        };

        eZone zone = eNothing;
        tItemPtr item;
        int part = 0;
    };

    explicit CPropertyArea(CPropertyRows& in_rows);
    ~CPropertyArea() override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    /// The row that the keyboard works, null for none, and which part of its value.
    tItemPtr Current() const { return m_current.lock(); }
    int CurrentPart() const { return m_iPart; }

    /// Makes a row the current one and scrolls to it. Null: none is.
    void SetCurrent(const tItemPtr& in_pItem, int in_iPart = 0);

    /// The rows that are shown, from the top.
    const tItemPointers& Shown();

    /// Takes the focus; the current row is the first one shown, unless the one that it is is shown.
    void Reenter();

    /// Opens the editor of the current row's value, or of its current part.
    /// \return the editor, null when it has none or is not to be edited
    QWidget* EditCurrent();

    /// What Enter and a press do to a row: edits the value, toggles a box, runs a command, follows a link, folds a
    /// group.
    void Work(const tItemPtr& in_pItem);

    /// Resets the current row's value; what is being typed is taken over first.
    /// \return whether there was something to reset
    bool ResetCurrent();
    bool CanResetCurrent();

    /// Ends the open edit: with what was typed, or with the value from before.
    void TakeOver();
    void Cancel();

    /// Takes over before a press, which then works only the row that it was aimed at.
    void TakeOverForPress(const QPoint& in_global);

    /// Takes over and edits the part or row that can be edited after the current one (before it); past the last, the
    /// focus leaves the page.
    void Leave(bool in_bForward);
    void LeaveControl(CInspectorDataWidget* in_pControl, bool in_bForward);

    /// Edits the part or row that can be edited after the current one (before it).
    /// \return false when there is none
    bool EditNext(bool in_bForward);

    void SetExpanded(sPropertyItem& in_item, bool in_bExpand);
    void ExpandAll(bool in_bExpand);

    /// What the user folded and unfolded, by sPropertyState::PathOf.
    const QMap<QString, bool>& ExpandedGroups() const { return m_expanded; }
    void SetExpandedGroups(const QMap<QString, bool>& in_expanded);

    /// Leaves out the rows in which not every word is found, and those that are not modified.
    void SetFilter(const QString& in_strText, bool in_bOnlyModified = false);
    const CPropertyFilter& Filter() const { return m_filter; }

    void ScrollTo(const sPropertyItem& in_item);

    /// The open editor, null for none.
    QWidget* Editor() const;

    /// Whether the keyboard works this page.
    bool IsActive() const { return hasFocus() || m_pEdit; }

    /// Places, in pixels of this widget. Empty for what is not shown.
    QRect RowRect(const sPropertyItem& in_item) const;
    QRect ValueRect(const sPropertyItem& in_item) const;
    QRect PartRect(const sPropertyItem& in_item, int in_iPart) const;
    QRect ResetRect(const sPropertyItem& in_item) const;
    sHit HitAt(const QPoint& in_position);

    /// The left edge of the values; -1: as wide as the labels need.
    int LabelColumn() const { return m_iColumn; }
    void SetLabelColumn(int in_iWidth);

    /// The children that are editors and widgets of the application stand in it.
    QWidget* Content() const { return m_pContentWidget; }
    QScrollBar* ScrollBar() const { return m_pScrollBar; }
    CPropertyRows& Rows() const { return m_rows; }

    /// Goes before anything of this does.
    const QObject& Whole() const { return m_whole; }

    /// The editors that the application registered.
    const CItemEditors* ItemEditors() const { return m_pItemEditors.get(); }
    void SetItemEditorFactory(const QItemEditorFactory* in_pFactory);

    // Of the page.
    void PageAboutToChange() override;
    void PageChanged() override;
    void ItemChanged(sPropertyItem& in_item) override;
    void AllItemsChanged() override;
    void Reveal(const std::shared_ptr<sPropertyItem>& in_pItem) override;

    // Of the first library's view.
    void RecomputeLayout() override;
    void OffsetControls(int in_iX, int in_iY) override;
    void OnContentHeightSet() override;

Q_SIGNALS:
    void CurrentChanged();
    void LinkActivated(QObject* in_pObject);
    void MenuAboutToShow(QMenu* io_pMenu, const CPropertyRow& in_row);
    void FilterWanted();

protected:
    bool event(QEvent* in_pEvent) override;
    void changeEvent(QEvent* in_pEvent) override;
    void resizeEvent(QResizeEvent* in_pEvent) override;
    void paintEvent(QPaintEvent* in_pEvent) override;
    void mousePressEvent(QMouseEvent* in_pEvent) override;
    void mouseMoveEvent(QMouseEvent* in_pEvent) override;
    void mouseReleaseEvent(QMouseEvent* in_pEvent) override;
    void mouseDoubleClickEvent(QMouseEvent* in_pEvent) override;
    void keyPressEvent(QKeyEvent* in_pEvent) override;
    void contextMenuEvent(QContextMenuEvent* in_pEvent) override;
    void inputMethodEvent(QInputMethodEvent* in_pEvent) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery in_eQuery) const override;
    void focusInEvent(QFocusEvent* in_pEvent) override;
    void focusOutEvent(QFocusEvent* in_pEvent) override;
    bool focusNextPrevChild(bool in_bNext) override;

private:
    friend class CAccessibleArea;
    friend class CAccessibleRow;

    enum eDrag
    {
        eNoDrag,
        eDragBorder,
        eDragValue, ///< sideways on the label of a number
    };

    // Layout: propertyarea.cpp.
    void Measure();
    void LayOutSoon();
    void FindCurrentAgain();
    void ForgetShown();
    void EnsureLayout();
    void PlaceRows();
    void FindWidgets();
    void PlaceWidgets();
    void AdoptWidget(sPropertyItem& in_item);
    int HeightOf(const sPropertyItem& in_item) const;
    int Column() const;
    int FittingColumn(bool in_bExact) const;
    int RowWidth() const;
    int IndexOf(const sPropertyItem* in_pItem);
    static QStringList PathOf(const sPropertyItem& in_item);
    tItemPointers::const_iterator FirstBelow(int in_iY);
    QRect LabelRect(const sPropertyItem& in_item) const;
    int ResetWidth(const sPropertyItem& in_item) const;
    QRect Mirrored(const QRect& in_rect) const;

    // Folding: propertystate.cpp.
    void RecallExpanded(sPropertyItem& io_group);
    void Keep(sPropertyItem& io_group, bool in_bExpand);
    void LeaveFolded();

    // Filter: propertyfilter.cpp.
    void ReadForFilter();
    void PlaceFiltered();

    // Painting: propertypainting.cpp.
    void Load(sPropertyItem& io_item);
    void LoadInSight(const QRect& in_exposed);
    void PaintNothingFound(QPainter& in_painter);
    void PaintItem(QPainter& in_painter, const sPropertyItem& in_item, const QRect& in_exposed);
    void PaintGrid(QPainter& in_painter, const sPropertyItem& in_item);
    void PaintCurrent(QPainter& in_painter, const sPropertyItem& in_item);
    void PaintTitle(QPainter& in_painter, const sPropertyItem& in_item, const QRect& in_exposed);
    void PaintArrow(QPainter& in_painter, const QRect& in_rect, bool in_bExpanded, const QColor& in_colour);
    void PaintValue(QPainter& in_painter, const sPropertyItem& in_item);
    void PaintPart(QPainter& in_painter, const sPropertyItem& in_item, int in_iPart, bool in_bNamed);
    void PaintBox(QPainter& in_painter, const sPropertyItem& in_item, const QRect& in_rect);
    const QPixmap& Box(QStyleOptionButton& io_option);
    void PaintCommand(QPainter& in_painter, const sPropertyItem& in_item);
    void PaintReset(QPainter& in_painter, const sPropertyItem& in_item);
    QFont LabelFont(const sPropertyItem& in_item) const;
    void UpdateRow(const sPropertyItem& in_item, bool in_bOnlyValue = false);
    void UpdateCurrent();
    void PaintText(QPainter& in_painter, const QRect& in_rect, const QString& in_strText, const QColor& in_colour);
    QString PartText(const sPropertyItem& in_item, int in_iPart) const;
    QString NamedPart(const sPropertyItem& in_item, int in_iPart) const;
    bool HasRoomForNames(const sPropertyItem& in_item) const;
    QColor TextColour(QPalette::ColorRole in_eRole) const;
    QColor MutedColour() const;
    QColor MarkColour(const QColor& in_text) const;
    bool IsCut(const sHit& in_hit) const;
    QString WholeText(const sHit& in_hit) const;

    // Mouse and keyboard: propertyinput.cpp.
    bool ShowTip(const QPoint& in_position, const QPoint& in_global);
    void Press(const sHit& in_hit);
    void DragTo(const QPoint& in_position);
    bool UndoKey(const QKeyEvent& in_event) const;
    void UndoOrRedo(const QKeyEvent& in_event);
    void EndDrag();
    static bool Steps(const sPropertyItem& in_item);
    bool IsBeside(const sPropertyItem& in_item, const QPoint& in_position) const;
    void PressList();
    static bool IsCommand(const QKeyEvent& in_event);
    bool Navigate(int in_iKey);
    bool WorkKey(const QKeyEvent& in_event);
    bool TypeInto(const QKeyEvent& in_event);
    bool MoveCurrent(int in_iRows);
    bool SideStep(bool in_bForward);
    void WorkWidget(const sPropertyItem& in_item);
    void Follow(const sPropertyItem& in_item);

    // Copying, pasting and the menu: propertymenu.cpp.
    void Copy(const tItemPtr& in_pItem);
    void CopyRow(const tItemPtr& in_pItem);
    void CopyGroup(const tItemPtr& in_pItem);
    void CopyPage();
    void CopyPageAsJson();
    QVariant Pasted(const tItemPtr& in_pItem);
    void Paste(const tItemPtr& in_pItem);
    void PastePage();
    void Reset(const tItemPtr& in_pItem);
    void OpenMenuOfCurrent();
    void OpenMenu(const tItemPtr& in_pItem, const QPoint& in_global);
    void FillMenu(const tItemPtr& in_pItem, bool in_bFits);

    // Editing and focus: propertyfocus.cpp.
    bool Editable(sPropertyItem& in_item);
    QWidget* EditOpenly();
    bool Enter(const tItemPtr& in_pItem, int in_iPart, bool in_bForward);
    bool StepInWidget(bool in_bNext);
    bool PassFocusOn(bool in_bNext);

    CPropertyRows& m_rows;
    QObject m_whole;
    std::unique_ptr<CPropertyControls> m_pControls; ///< the controller of the first library's controls
    std::unique_ptr<CPropertyEdit> m_pEdit;         ///< what is being edited; null for nothing
    std::unique_ptr<CItemEditors> m_pItemEditors;
    QMap<QString, bool> m_expanded;
    CPropertyFilter m_filter;
    std::weak_ptr<sPropertyItem> m_beforeFilter; ///< the current row when the filter began
    int m_iOffsetBeforeFilter = 0;
    tItemPointers m_shown;                  ///< from the top; counting references would be most of what placing costs
    tItems m_widgets;                       ///< the rows that are widgets
    std::weak_ptr<sPropertyItem> m_pressed; ///< the command that the mouse holds down
    QPointer<QMenu> m_pMenu;                ///< while it is open
    CLineTexts m_texts;
    QHash<int, QPixmap> m_boxes; ///< as the style draws them, by their state
    QColor m_gridColour;
    std::weak_ptr<sPropertyItem> m_current;
    int m_iPart = 0;
    bool m_bCurrentWent = false; ///< which is still to be told
    QStringList m_lost;          ///< which row was the current one before the page changed; empty: it has not gone
    bool m_bLayoutDue = false;   ///< rows are to be placed
    bool m_bLabelsDue = false;   ///< and their labels to be measured
    int m_iColumn = -1;
    int m_iFitting = 0; ///< the column that the labels need, estimated
    int m_iRowHeight = 0;
    int m_iIndent = 0;
    eDrag m_eDrag = eNoDrag;
    QStringList m_aimed; ///< the row that a press was aimed at before an edit was taken over; empty: any
    QPoint m_dragFrom;
    std::weak_ptr<sPropertyItem> m_dragged;
    QVariant m_dragValue;                       ///< the value when the drag began
    std::shared_ptr<CPropertyStep> m_pDragStep; ///< what the drag wrote
};

#endif
