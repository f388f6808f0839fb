#include "propertyview.h"

/// What the compiler must refuse, and say why.
struct sUnknown
{};

void Fill(CPropertyGroup io_group, sUnknown& io_unknown)
{
    io_group.Add(QString(), io_unknown);
    io_group.Add(QString(), 5);
    io_group.Add(
        QString(), [](int) { return 1; }, [](int) {});
    io_group.Add(
        QString(), [] { return 1; }, [](const QString&) {});
}
