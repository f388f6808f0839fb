#ifndef EXERCISE_H
#define EXERCISE_H

#include "property.h"

#include <QList>
#include <QPointer>
#include <QRandomGenerator>
#include <QSet>
#include <QStringList>
#include <QTimer>

class CProbe;

/// Works the inspector by itself: selects every object, reads every property, makes random edits and undoes each, then
/// closes the program, and says what came of it. Does one thing per turn of the program's event loop. The edits are the
/// same each time as far as the program is.
class CExercise : public QObject
{
    Q_OBJECT

public:
    /// Begins when the environment asks for it. It belongs to the probe.
    static void BeginIfAsked(CProbe& in_probe);

private:
    CExercise(CProbe& in_probe, int in_iEdits);

    void Step();
    void Work();
    void List();
    void Show(QObject* in_pObject);
    void EditAny();
    void Edit(const tPropertyPtr& in_pProperty, const QVariant& in_value);
    void Report() const;
    void CloseProgram();

    CProbe& m_probe;
    QTimer m_timer;
    QRandomGenerator m_random;
    QList<QPointer<QObject>> m_objects; ///< all that were found
    QSet<QObject*> m_found;             ///< the same, and those that have died
    int m_iNext = 0;                    ///< of the objects
    int m_iEditsLeft;
    bool m_bInStep = false; ///< the program runs an event loop inside a step: it shows a dialog
    bool m_bClosing = false;

    int m_iRead = 0;
    int m_iEdits = 0;
    QStringList m_notUndone;
    int m_iDialogs = 0;
};

#endif
