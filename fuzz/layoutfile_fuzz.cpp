// Any bytes as a layout file, loaded on the sample board, checked and written again.
#include "boardinfo.h"
#include "layoutcheck.h"
#include "layoutfile.h"
#include "messenger.h"
#include "panelgrid.h"

#include <cstdint>
#include <cstdlib>

namespace {

struct CSilent : IMessenger
{
    EAnswer Message(const QString&, EButtons, EIcon) override { return EAnswer::Ok; }
};

const CBoardInfo& SampleBoard()
{
    static CSilent messenger;
    static CBoardInfo board;
    static const bool read =
        board.Read(QStringLiteral(QUILLON_BOARDS "/atmega328p"), QString(), messenger);
    if (!read)
        std::abort();
    return board;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static CSilent messenger;
    const CBoardInfo& board = SampleBoard();
    // A document takes its limits once from the board and keeps its grid from one file to
    // the next, as the editor does.
    static CPanelGrid grid(messenger), again(messenger);
    static const bool limited = [] {
        const QHash<int, int> limits = SampleBoard().UseLimits();
        grid.SetUseLimits(limits);
        again.SetUseLimits(limits);
        return true;
    }();
    (void)limited;
    CLayoutFile file(&board, messenger);
    file.Read(grid, CLayoutFile::Decode(
                        QByteArray(reinterpret_cast<const char*>(data), qsizetype(size))));
    CLayoutCheck::Run(grid);

    // What was loaded and written, loaded again, writes the same bytes.
    const QByteArray written = CLayoutFile::Write(grid);
    file.Read(again, CLayoutFile::Decode(written));
    if (CLayoutFile::Write(again) != written)
        std::abort();
    // Every cell made for this input is freed before the next, so the fuzzer's leak watch
    // sees as many frees as allocations.
    grid.ClearAll();
    again.ClearAll();
    return 0;
}
