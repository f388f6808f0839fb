#include "signalear.h"

#include "inspectqt.h"

#include <QStringList>
#include <QThread>

namespace
{
QString Text(const QMetaMethod& in_signal, void** in_pArguments)
{
    QStringList arguments;
    const QList<QByteArray> types = in_signal.parameterTypes();
    for (int i = 0; i < types.size(); ++i)
    {
        const QVariant value = InspectQt::Argument(in_signal, i, in_pArguments[i + 1]);
        const QString strText = value.canConvert<QString>() ? value.toString() : QString();
        arguments << (strText.isEmpty() ? QString::fromLatin1(types.at(i)) : strText);
    }
    return QString::fromLatin1(in_signal.name()) + QLatin1Char('(') + arguments.join(QLatin1String(", ")) +
           QLatin1Char(')');
}
} // namespace

CSignalEar::CSignalEar(QObject* in_pObject, tHeard in_heard) : m_heard(std::move(in_heard))
{
    const QMetaObject& meta = *in_pObject->metaObject();
    const int iFirst = QObject::staticMetaObject.methodCount();
    for (int i = 0; i < meta.methodCount(); ++i)
    {
        if (meta.method(i).methodType() == QMetaMethod::Signal)
        {
            m_signals.push_back(meta.method(i));
        }
    }
    for (std::size_t i = 0; i < m_signals.size(); ++i)
    {
        QMetaObject::connect(in_pObject, m_signals[i].methodIndex(), this, iFirst + static_cast<int>(i),
                             Qt::DirectConnection);
    }
}

/// A signal that another thread emits is heard without its arguments, which would not outlive the emission.
int CSignalEar::qt_metacall(QMetaObject::Call in_eCall, int in_iMethod, void** in_pArguments)
{
    const int iMethod = QObject::qt_metacall(in_eCall, in_iMethod, in_pArguments);
    if (iMethod < 0 || in_eCall != QMetaObject::InvokeMetaMethod)
    {
        return iMethod;
    }
    const QMetaMethod& signal = m_signals.at(static_cast<std::size_t>(iMethod));
    if (QThread::currentThread() == thread())
    {
        m_heard(Text(signal, in_pArguments));
        return -1;
    }
    const QString strSignal = QString::fromLatin1(signal.methodSignature());
    QMetaObject::invokeMethod(
        this, [this, strSignal] { m_heard(strSignal); }, Qt::QueuedConnection);
    return -1;
}
