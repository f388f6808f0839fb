#ifndef SHAPEDTEXTS_H
#define SHAPEDTEXTS_H

#include <QCache>
#include <QObject>
#include <QPainter>
#include <QTextLayout>

/// The texts that a view and its data widgets drew last, each shaped once: that is half the cost of drawing a text, and
/// a repaint draws the same ones again. Private to the library.
class CShapedTexts : public QObject
{
    Q_OBJECT

public:
    CShapedTexts();

    /// Draws a text left-aligned and vertically centred, the same pixels as QPainter::drawText with these flags.
    void Draw(QPainter& in_painter, const QRect& in_rect, const QString& in_strText);

public Q_SLOTS:
    /// Forgets all texts, as when the fonts known to the process have changed.
    void Forget();

private:
    /// Null for a text that is not kept.
    const QTextLayout* Layout(const QString& in_strText, const QFont& in_font);

    QCache<QString, QTextLayout> m_layouts{256}; ///< what a high screen shows, and some more to scroll to and fro
};

#endif
