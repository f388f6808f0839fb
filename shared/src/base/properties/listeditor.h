#ifndef LISTEDITOR_H
#define LISTEDITOR_H

#include "propertytype.h"

#include <QComboBox>

#include <vector>

/// Chooses one of several values.
class CChoiceEditor final : public QComboBox
{
    Q_OBJECT
    Q_PROPERTY(QVariant value READ Value WRITE SetValue NOTIFY ValueChanged USER true)

public:
    CChoiceEditor(const QVector<sPropertyChoice>& in_choices, QWidget* in_pParent);

    QVariant Value() const { return m_value; }

    /// A value that is no choice stays until one is chosen.
    void SetValue(const QVariant& in_value);

Q_SIGNALS:
    void ValueChanged(const QVariant& in_value);

protected:
    void wheelEvent(QWheelEvent* in_pEvent) override;

private:
    void Choose(int in_iIndex);

    QVector<sPropertyChoice> m_choices;
    QVariant m_value;
};

/// Ticks the keys of flags, in a list that stays open meanwhile.
class CFlagsEditor final : public QComboBox
{
    Q_OBJECT
    Q_PROPERTY(int value READ Value WRITE SetValue NOTIFY ValueChanged USER true)

public:
    CFlagsEditor(const QMetaEnum& in_keys, QWidget* in_pParent);

    int Value() const { return m_iValue; }
    void SetValue(int in_iValue);

    bool eventFilter(QObject* in_pObject, QEvent* in_pEvent) override;

Q_SIGNALS:
    void ValueChanged(int in_iValue);

protected:
    void paintEvent(QPaintEvent* in_pEvent) override;
    void keyPressEvent(QKeyEvent* in_pEvent) override;
    void wheelEvent(QWheelEvent* in_pEvent) override;

private:
    bool ListKey(int in_iKey);
    bool ListMouse(const QEvent& in_event, int in_iRow);
    void Toggle(int in_iRow);
    void ShowTicks();

    QMetaEnum m_keys;
    int m_iValue = 0;
    int m_iPressedRow = -1;
};

#endif
