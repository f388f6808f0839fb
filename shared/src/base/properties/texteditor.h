#ifndef TEXTEDITOR_H
#define TEXTEDITOR_H

#include "propertytype.h"

#include <QKeySequenceEdit>
#include <QLineEdit>
#include <QPlainTextEdit>

/// Edits a value as a text in one line. The property tells of no typing: a text is taken over when it is complete.
class CTextEditor : public QLineEdit
{
    Q_OBJECT
    Q_PROPERTY(QVariant value READ Value WRITE SetValue NOTIFY ValueChanged USER true)

public:
    CTextEditor(const CPropertyType& in_type, const sPropertyFormat& in_format, QWidget* in_pParent);

    /// What is typed, where it stands for a value, else the last value.
    QVariant Value() const;

    /// Invalid: nothing is shown, and is the value until something is typed.
    void SetValue(const QVariant& in_value);

Q_SIGNALS:
    void ValueChanged(const QVariant& in_value);

protected:
    const sPropertyFormat& Format() const { return m_format; }

private:
    const CPropertyType& m_type;
    sPropertyFormat m_format;
    QVariant m_value;
    QString m_strShown; ///< while that is the text, nothing was typed
};

/// Edits a text of several lines.
class CLongTextEditor : public QPlainTextEdit
{
    Q_OBJECT
    Q_PROPERTY(QVariant value READ Value WRITE SetValue USER true)

public:
    explicit CLongTextEditor(QWidget* in_pParent);

    QVariant Value() const { return Edited() ? ToValue(Plain()) : m_value; }
    void SetValue(const QVariant& in_value);

    /// As high as the text, from four lines to twelve.
    QSize sizeHint() const override;

protected:
    void wheelEvent(QWheelEvent* in_pEvent) override;

private:
    virtual QString ToText(const QVariant& in_value) const { return in_value.toString(); }
    virtual QVariant ToValue(const QString& in_strText) const { return in_strText; }

    QString Plain() const;
    bool Edited() const { return !m_value.isValid() || document()->isModified(); }

    QVariant m_value;
};

/// Edits texts, one a line; an item in quotes where a line would not tell it.
class CLinesEditor final : public CLongTextEditor
{
    Q_OBJECT

public:
    explicit CLinesEditor(QWidget* in_pParent) : CLongTextEditor(in_pParent) {}

private:
    QString ToText(const QVariant& in_value) const override;
    QVariant ToValue(const QString& in_strText) const override;
};

/// Records keys. Enter, Tab and Escape are the page's; they can be pasted as texts.
class CKeySequenceEditor final : public QKeySequenceEdit
{
    Q_OBJECT
    Q_PROPERTY(QVariant value READ Value WRITE SetValue USER true)

public:
    explicit CKeySequenceEditor(QWidget* in_pParent);

    QVariant Value() const { return QVariant::fromValue(keySequence()); }
    void SetValue(const QVariant& in_value);

protected:
    void keyPressEvent(QKeyEvent* in_pEvent) override;
};

#endif
