// Figures for a full layout: every cell of both side columns and the process area occupied,
// multi-row panels included. Prints the median time of load, check and save, and the heap
// the loaded layout holds. Figures, not a test: nothing here fails on a slow machine.
#include "bench/fulllayout.h"

#include "boardinfo.h"
#include "layoutcheck.h"
#include "layoutfile.h"
#include "messenger.h"
#include "panelgrid.h"

#include <QElapsedTimer>
#include <QTemporaryDir>

#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

struct CSilent : IMessenger
{
    EAnswer Message(const QString&, EButtons, EIcon) override { return EAnswer::Ok; }
};

double MedianMicroseconds(int runs, const std::function<void()>& work)
{
    std::vector<double> times;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        work();
        times.push_back(double(timer.nsecsElapsed()) / 1000.0);
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

} // namespace

int main()
{
    CSilent messenger;
    CBoardInfo board;
    if (!board.Read(QStringLiteral(QUILLON_BOARDS "/atmega328p"), QString(), messenger)) {
        std::fprintf(stderr, "cannot read the sample board\n");
        return 1;
    }
    QTemporaryDir dir;
    const QString path = dir.filePath("full.loc");
    {
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        file.write(FullLayoutText().toUtf8());
    }
    CLayoutFile file(&board, messenger);

    const size_t before = mallinfo2().uordblks;
    auto grid = std::make_unique<CPanelGrid>(messenger);
    file.Load(*grid, path);
    const size_t held = mallinfo2().uordblks - before;

    int cells = 0, panels = 0;
    for (int column : {-1, -2})
        for (int row = 1; row <= 40; ++row)
            cells += grid->GetCell(column, row) != nullptr,
                panels += grid->GetCell(column, row) && grid->GetCell(column, row)->GetPanel();
    for (int column = 1; column <= 16; ++column)
        for (int row = 1; row <= 40; ++row)
            cells += grid->GetCell(column, row) != nullptr,
                panels += grid->GetCell(column, row) && grid->GetCell(column, row)->GetPanel();

    const int runs = 500;
    const double load = MedianMicroseconds(runs, [&] {
        CPanelGrid fresh(messenger);
        file.Load(fresh, path);
    });
    const double check = MedianMicroseconds(runs, [&] { CLayoutCheck::Run(*grid); });
    const QString out = dir.filePath("out.loc");
    const double save = MedianMicroseconds(runs, [&] { file.Save(*grid, out); });
    const double write = MedianMicroseconds(runs, [&] { CLayoutFile::Write(*grid); });

    std::printf("full layout: %d of 720 cells occupied by %d panels\n", cells, panels);
    std::printf("load   median %8.1f us  (goal < 1000 us)\n", load);
    std::printf("check  median %8.1f us  (goal < 1000 us)\n", check);
    std::printf("save   median %8.1f us  (goal < 1000 us; atomic, flushed to disk)\n", save);
    std::printf("  of which writing the text %8.1f us\n", write);
    std::printf("loaded layout holds %.2f MB of heap  (goal < 4 MB)\n",
                double(held) / (1024.0 * 1024.0));
    return 0;
}
