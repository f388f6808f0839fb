#ifndef NUMBEREDITOR_H
#define NUMBEREDITOR_H

#include "propertytype.h"

#include <QAbstractSpinBox>

class QLabel;

/// Edits what can be typed and stepped. QSpinBox knows neither 64 bits nor expressions.
class CNumberEditor final : public QAbstractSpinBox
{
    Q_OBJECT
    Q_PROPERTY(QVariant value READ Value WRITE SetValue NOTIFY ValueChanged USER true)

public:
    CNumberEditor(const CPropertyType& in_type, const sPropertyFormat& in_format, QWidget* in_pParent);

    /// What is typed, where it stands for a value, else the last value.
    QVariant Value() const;

    /// Invalid: nothing is shown, and is the value until something is typed.
    void SetValue(const QVariant& in_value);

    void stepBy(int in_iSteps) override;

Q_SIGNALS:
    void ValueChanged(const QVariant& in_value);

protected:
    void resizeEvent(QResizeEvent* in_pEvent) override;
    StepEnabled stepEnabled() const override;
    QValidator::State validate(QString& io_strText, int& io_iCursor) const override;
    void wheelEvent(QWheelEvent* in_pEvent) override;

private:
    QLabel* Beside(const QString& in_strText);
    void PlaceBeside();

    const CPropertyType& m_type;
    sPropertyFormat m_format;
    QVariant m_value;
    QString m_strShown; ///< while that is the text, nothing was typed
    QLabel* m_pPrefix;  ///< shown, but no part of what is typed; null: none
    QLabel* m_pSuffix;
};

#endif
