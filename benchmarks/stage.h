#ifndef STAGE_H
#define STAGE_H

#include "subject.h"

#include <QEvent>

/// A visible window of 400 x 640 pixels with one subject in it and the mouse cursor over it, and what can be done to
/// it. What is done is finished when the event loop is idle.
class CStage : public QWidget
{
public:
    CStage(tCreateSubject in_pCreate, int in_iRows);

    bool CanScroll();
    bool CanOpenLine() { return m_pSubject->OpensOnPress(CProperties::eText); }
    bool CanOpenList() { return m_pSubject->OpensOnPress(CProperties::eChoice); }
    bool CanAlways() { return true; }

    void Build();
    void BuildIfEmpty();
    void Clear();
    void Replace() { m_pSubject->Replace(); }
    void ResizeStep();
    void ScrollPage();
    void ChangeAll();
    void UpdateAll() { m_pSubject->UpdateAll(); }
    void ChangeOne() { m_properties.Change(eRowInSight); }
    void UpdateOne() { m_pSubject->Update(eRowInSight); }
    void WheelStep();
    void MoveMouse();
    void PressLine() { Press(m_pSubject->Control(eRowInSight)); }
    void PressList() { Press(m_pSubject->Control(eChoiceInSight)); }
    void Nothing() {}

    /// Ends whatever is being edited.
    void EndEditing();

    /// The first letter of a word in every tenth row, then the next: typing goes on in a page whose values are known.
    bool CanFilter() { return m_pSubject->CanFilter(); }
    void EndFilter() { m_pSubject->Filter(QString()); }
    void BeginFilter() { m_pSubject->Filter(QStringLiteral("9")); }
    void NarrowFilter() { m_pSubject->Filter(QStringLiteral("9 v")); }

    /// Handles events until none is left.
    static void Settle();

protected:
    void resizeEvent(QResizeEvent* in_pEvent) override;

private:
    enum
    {
        eRowInSight = 2,
        eChoiceInSight = 7,
    };

    void Press(const QRect& in_rect);
    void SendMouse(QEvent::Type in_eType, const QPoint& in_position, Qt::MouseButton in_eButton);

    CProperties m_properties;
    std::unique_ptr<ISubject> m_pSubject;
    bool m_bBuilt = false;
    bool m_bThere = false; ///< alternates between a step and the step back
};

#endif
