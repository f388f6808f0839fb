#ifndef LINETEXTS_H
#define LINETEXTS_H

/// The texts that a page painted last. Private to the library.
/// \file

#include <QCache>
#include <QTextLayout>

/// Each is measured, cut and shaped once, which is most of what painting a text costs: a repaint has the same ones
/// again.
class CLineTexts
{
public:
    /// A text in one line, cut with an ellipsis where it is wider than the width given. It begins at (0, 0) and holds
    /// until the next call.
    const QTextLayout& Line(const QString& in_strText, const QFont& in_font, int in_iWidth);

    /// As when the fonts known to the process have changed.
    void Forget() { m_lines.clear(); }

private:
    struct sLine
    {
        sLine(const QString& in_strText, const QFont& in_font, int in_iWidth);
        void Shape(const QString& in_strText);
        bool Is(const QFont& in_font, int in_iWidth) const;

        QTextLayout layout;
        int cutTo = -1; ///< the width that the whole text did not fit in; -1: it is whole
    };

    QCache<QString, sLine> m_lines{256}; ///< what a high screen shows, and some more to scroll to and fro
};

#endif
