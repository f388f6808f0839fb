#ifndef SIGNALEAR_H
#define SIGNALEAR_H

#include <QMetaMethod>
#include <QObject>

#include <functional>
#include <vector>

/// Hears every signal of an object, with its arguments, from its making to its end.
class CSignalEar : public QObject
{
public:
    typedef std::function<void(const QString&)> tHeard;

    /// `in_heard` gets each signal as text, for instance "valueChanged(7)". The object may die at any time.
    CSignalEar(QObject* in_pObject, tHeard in_heard);

    int qt_metacall(QMetaObject::Call in_eCall, int in_iMethod, void** in_pArguments) override;

private:
    std::vector<QMetaMethod> m_signals; ///< connected to methods of this, numbered alike, that only Qt calls
    tHeard m_heard;
};

#endif
