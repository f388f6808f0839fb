#ifndef LABELWIDTHS_H
#define LABELWIDTHS_H

#include <QFont>
#include <QHash>
#include <QObject>
#include <QString>

/// The widths of a view's labels, each measured once. Knows those of the present page and of the page before: an
/// inspector often shows the same labels again. Private to the library.
class CLabelWidths : public QObject
{
    Q_OBJECT

public:
    CLabelWidths();

    /// The width of a label's text in pixels; the rectangle chooses between the lengths of a text that has several.
    /// Another font object than the one before, be it of the same look, makes it forget everything.
    int WidthOf(const QString& in_strLabel, const QFont& in_font, const QRect& in_rect);

    /// From here on, labels that were not asked for since the last call are those of the page before that.
    void StartPage();

public Q_SLOTS:
    /// Forgets everything, as when the fonts known to the process have changed.
    void Forget();

private:
    QFont m_font;
    QHash<QString, int> m_present;
    QHash<QString, int> m_before;
};

#endif
