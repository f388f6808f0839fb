#ifndef STAGE_H
#define STAGE_H

#include <QList>
#include <QPointer>
#include <QWidget>

/// A few widgets to inspect. Pressing one selects it and works it as well, with Ctrl beside those selected before;
/// pressing beside them selects nothing.
class CStage : public QWidget
{
    Q_OBJECT

public:
    CStage();

    /// Null selects nothing.
    void Select(QWidget* in_pObject);

    /// Selects the object beside those that are, or no more if it is one of them.
    void Toggle(QWidget* in_pObject);

    /// The selected objects that are still alive, in the order of their selection.
    QList<QObject*> GetSelection() const;

    bool eventFilter(QObject* in_pWatched, QEvent* in_pEvent) override;

public slots:
    /// Selects the object after the selected one that is still alive, hidden ones included.
    void SelectNext();

    /// Selects it beside those that are selected.
    void SelectNextToo();

    /// Replaces all objects by new ones.
    void Restore();

signals:
    /// Other objects are selected; `in_pObject` is the last of them, null for none.
    void Selected(QObject* in_pObject);

protected:
    void mousePressEvent(QMouseEvent* in_pEvent) override;
    void paintEvent(QPaintEvent* in_pEvent) override;

private:
    typedef QPointer<QWidget> tObject;

    void CreateObjects();
    void Add(QWidget* in_pObject, const char* in_strName);
    QWidget* ObjectAround(QWidget* in_pWidget) const;
    QWidget* LastSelected() const;
    QWidget* Next() const;
    void Announce();

    QList<tObject> m_objects;
    QList<tObject> m_selected;
    int m_iNextY;
};

#endif
