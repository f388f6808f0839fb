#include <QDir>
#include <QImage>

#include <cstdio>
#include <cstdlib>

namespace
{
const int g_iCell = 8;        ///< pixels; what is smaller, such as the edges of letters, averages out
const int g_iGreyLevels = 16; ///< how far the averages of a cell may be apart

int CellsApart(const QImage& in_first, const QImage& in_second)
{
    const QSize cells = in_first.size() / g_iCell;
    const QImage first = in_first.scaled(cells, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QImage second = in_second.scaled(cells, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    int iCells = 0;
    for (int y = 0; y < cells.height(); ++y)
    {
        for (int x = 0; x < cells.width(); ++x)
        {
            iCells += std::abs(qGray(first.pixel(x, y)) - qGray(second.pixel(x, y))) > g_iGreyLevels ? 1 : 0;
        }
    }
    return iCells;
}

bool IsSamePicture(const QString& in_strFirst, const QString& in_strSecond)
{
    const QImage first(in_strFirst);
    const QImage second(in_strSecond);
    const int iApart = !first.isNull() && first.size() == second.size() ? CellsApart(first, second) : -1;
    std::printf("%s: %d cells apart\n", in_strFirst.toLocal8Bit().constData(), iApart);
    return iApart == 0;
}
} // namespace

/// comparepictures <folder> <folder>: answers 0 if both hold the same pictures.
int main(int argc, char** argv)
{
    if (argc != 3)
    {
        return 2;
    }
    const QDir first(QString::fromLocal8Bit(argv[1]));
    const QDir second(QString::fromLocal8Bit(argv[2]));
    const QStringList names = first.entryList(QDir::Files);
    bool bSame = !names.isEmpty() && names == second.entryList(QDir::Files);
    for (int i = 0; i < names.size(); ++i)
    {
        bSame = IsSamePicture(first.filePath(names.at(i)), second.filePath(names.at(i))) && bSame;
    }
    return bSame ? 0 : 1;
}
