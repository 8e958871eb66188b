// The panel pictures: every id draws inside its own rectangle only, ids look different,
// pins sit on the sides the panels wire to, and 2x is drawn at 2x rather than scaled up.
#include "panelcell.h"
#include "panelpainter.h"

#include <gtest/gtest.h>

#include <QFileInfo>
#include <QHash>
#include <QImage>
#include <QPainter>

namespace {

constexpr int kMargin = 6;

// A picture drawn into rect (kMargin, kMargin, its size) of a transparent image with room
// around it, so paint outside the rectangle shows.
QImage Render(const CPanelImageItem& item, qreal ratio, QSize size = QSize())
{
    if (!size.isValid())
        size = CPanelPainter::NaturalSize(item.BitmapId);
    QImage image(((size + QSize(2 * kMargin, 2 * kMargin)) * ratio),
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    CPanelPainter::DrawItem(painter, QRectF(QPointF(kMargin, kMargin), QSizeF(size)), item);
    return image;
}

// The picture alone, without the margin.
QImage Bare(const CPanelImageItem& item, qreal ratio)
{
    const QImage image = Render(item, ratio);
    const QSize size = CPanelPainter::NaturalSize(item.BitmapId) * ratio;
    return image.copy(QRect(QPoint(kMargin, kMargin) * ratio, size));
}

CPanelImageItem Sample(int id)
{
    return {id, QStringLiteral("Conveyor start button"), QStringLiteral("PD2"),
            QStringLiteral("main line 3")};
}

struct CPaint
{
    int Inside = 0;
    int Outside = 0;
};

CPaint CountPaint(const QImage& image, qreal ratio, QSize size)
{
    const QRect inside(QPoint(kMargin, kMargin) * ratio, size * ratio);
    CPaint paint;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) > 0)
                ++(inside.contains(x, y) ? paint.Inside : paint.Outside);
    return paint;
}

// Grey level of the picture laid on white, as a reader sees it.
int GreyOnWhite(QRgb pixel)
{
    const int a = qAlpha(pixel);
    const auto over = [a](int channel) { return channel + (255 - a); }; // premultiplied
    return (over(qRed(pixel)) * 30 + over(qGreen(pixel)) * 59 + over(qBlue(pixel)) * 11) / 100;
}

// Neighbouring pixel pairs whose grey levels differ by more than half the full range: a
// smooth upscale halves every step, so it has none of these where a true 2x drawing has many.
int SharpSteps(const QImage& image)
{
    int steps = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const int here = GreyOnWhite(image.pixel(x, y));
            if (x + 1 < image.width() && qAbs(here - GreyOnWhite(image.pixel(x + 1, y))) > 140)
                ++steps;
            if (y + 1 < image.height() && qAbs(here - GreyOnWhite(image.pixel(x, y + 1))) > 140)
                ++steps;
        }
    return steps;
}

bool PaintedAt(const QImage& image, int x, int y)
{
    return qAlpha(image.pixel(x, y)) > 128;
}

// Whether a signal leaves the 1x picture at the middle of a side.
bool PinAt(const QImage& image, char side)
{
    const int w = image.width(), h = image.height();
    switch (side) {
    case 'U':
        return PaintedAt(image, w / 2 - 1, 0) && PaintedAt(image, w / 2, 0);
    case 'D':
        return PaintedAt(image, w / 2 - 1, h - 1) && PaintedAt(image, w / 2, h - 1);
    case 'L':
        return PaintedAt(image, 0, h / 2 - 1) && PaintedAt(image, 0, h / 2);
    default:
        return PaintedAt(image, w - 1, h / 2 - 1) && PaintedAt(image, w - 1, h / 2);
    }
}

// Texts as the panels put them on their pictures.
CPanelImageItem SheetSample(int id)
{
    const QString port = id >= 10033 && id <= 10036     ? QStringLiteral("12")
                         : id == 10037 || id == 275     ? QStringLiteral("bit3")
                         : (id >= 10026 && id <= 10031) ? QStringLiteral("300")
                         : (id >= 262 && id <= 265) || (id >= 10038 && id <= 10042)
                             ? QStringLiteral("1")
                             : QStringLiteral("PD2");
    return {id, QStringLiteral("Pump"), port,
            id == 10028 ? QStringLiteral("T") : QStringLiteral("run")};
}

} // namespace

TEST(PanelPainter, EveryKnownIdPaintsInsideItsRectangleAndNowhereElse)
{
    for (const int id : CPanelPainter::KnownIds())
        for (const qreal ratio : {1.0, 2.0}) {
            const QSize size = CPanelPainter::NaturalSize(id);
            const CPaint paint = CountPaint(Render(Sample(id), ratio), ratio, size);
            EXPECT_GT(paint.Inside, 20 * ratio * ratio) << id << " at " << ratio << "x";
            EXPECT_EQ(paint.Outside, 0) << id << " at " << ratio << "x";
        }
}

TEST(PanelPainter, AnUnknownIdDrawsAFramedQuestionMarkInItsRectangle)
{
    const CPaint paint = CountPaint(Render({4711, "", "", ""}, 1), 1, QSize(32, 32));
    EXPECT_GT(paint.Inside, 50);
    EXPECT_EQ(paint.Outside, 0);
    EXPECT_FALSE(CPanelPainter::IsKnown(4711));
}

TEST(PanelPainter, NoTwoKnownIdsLookAlike)
{
    QHash<QByteArray, int> seen;
    for (const int id : CPanelPainter::KnownIds()) {
        const QImage image = Bare({id, "", "", ""}, 1);
        const QByteArray bytes(reinterpret_cast<const char*>(image.constBits()),
                               image.sizeInBytes());
        const QByteArray key = QByteArray::number(image.width()) + ':' + bytes;
        EXPECT_FALSE(seen.contains(key)) << id << " looks like " << seen.value(key);
        seen.insert(key, id);
    }
    EXPECT_GE(seen.size(), 70);
}

TEST(PanelPainter, TwoTimesIsDrawnSharpNotScaledUp)
{
    for (const int id : CPanelPainter::KnownIds()) {
        const CPanelImageItem item = Sample(id);
        const QImage twice = Bare(item, 2);
        QImage once = Bare(item, 1);
        once.setDevicePixelRatio(1);
        const QImage upscaled =
            once.scaled(twice.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        EXPECT_GT(SharpSteps(twice), SharpSteps(upscaled) + 10) << id;
    }
}

TEST(PanelPainter, TextsOnAPictureChangeIt)
{
    // The timer's kind letter, the counter's value, the jump's id and a strip's name.
    for (const CPanelImageItem& item :
         {CPanelImageItem{10028, "", "", "H"}, CPanelImageItem{10026, "", "300", ""},
          CPanelImageItem{10034, "", "7", ""}, CPanelImageItem{10070, "start", "", ""}}) {
        const CPanelImageItem blank{item.BitmapId, "", "", ""};
        EXPECT_NE(Bare(item, 1), Bare(blank, 1)) << item.BitmapId;
    }
    EXPECT_NE(Bare({10028, "", "", "H"}, 1), Bare({10028, "", "", "T"}, 1));
}

TEST(PanelPainter, PinsSitOnTheSidesThePanelsWireTo)
{
    // Process panels: top and left pins on the first row, the right pin on every row, the
    // bottom pin on the last; side-column strips lead towards the process area.
    const char* const lines[] = {
        "NOT \tR",
        "NOT \tD",
        "AND \tR",
        "AND \tD",
        "OR  \tR",
        "OR  \tD",
        "XOR \tR",
        "XOR \tD",
        "ON  \tR",
        "ON  \tD",
        "OFF \tR",
        "OFF \tD",
        "LINE\tUD",
        "LINE\tLR",
        "LINE\tUR",
        "LINE\tLD",
        "LINE\tUR,LD",
        "LINE\tUD,LR",
        "LINE\tUR,UD",
        "LINE\tLR,LD",
        "JPI \t7,U",
        "JPI \t7,L",
        "JPO \t7,R",
        "JPO \t7,D",
        "FF",
        "RSFF",
        "D_FF",
        "T_FF",
        "DLY \t1.00S",
        "TIM \tH,1.00S",
        "CNT \tC,5",
        "CNT \tC,300,10,5",
        "UART\t3",
        "7S_B\t0",
        "7S4_D\t1",
        "SMOT\t2,20",
        "KEY \tH,PD2\t\t;start",
        "UARI\tC,200,17,5",
        "LAMP\tH,PB5\t\t;run",
        "BUZZ\tPB1,2000,500",
    };
    for (const char* line : lines) {
        const CPanelCell cell{QString::fromLatin1(line)};
        ASSERT_NE(cell.GetPanel(), nullptr) << line;
        const QString sides = cell.GetPanel()->GetSides();
        const bool process = cell.IsProcess();
        const auto& items = cell.GetImage().Items;
        for (int row = 0; row < items.size(); ++row) {
            const QImage image = Bare(items[row], 1);
            const bool first = row == 0, last = row == items.size() - 1;
            const bool wantLeft = sides.contains(u'L') && (!process || first);
            EXPECT_EQ(PinAt(image, 'L'), wantLeft) << line << " row " << row;
            EXPECT_EQ(PinAt(image, 'R'), sides.contains(u'R')) << line << " row " << row;
            if (process && first) {
                EXPECT_EQ(PinAt(image, 'U'), sides.contains(u'U')) << line << " row " << row;
            }
            if (process && last) {
                EXPECT_EQ(PinAt(image, 'D'), sides.contains(u'D')) << line << " row " << row;
            }
        }
    }
}

TEST(PanelPainter, DrawImageStacksTheItemsDownwards)
{
    const CPanelCell cell(QStringLiteral("CNT \tC,300,10,5"));
    ASSERT_EQ(cell.GetImage().Items.size(), 3);
    QImage image(32, 96, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        CPanelPainter::DrawImage(painter, QPointF(0, 0), cell.GetImage());
    }
    for (int row = 0; row < 3; ++row)
        EXPECT_EQ(image.copy(0, 32 * row, 32, 32), Bare(cell.GetImage().Items[row], 1)) << row;
}

// Not a check but the sheet to look at: every picture at 1x and 2x with its id under it.
TEST(PanelPainter, WritesThePictureSheet)
{
    const QList<int> ids = CPanelPainter::KnownIds();
    const int columns = 8, cellWidth = 64 * 3 + 24, cellHeight = 64 + 24;
    const int rows = (int(ids.size()) + columns - 1) / columns;
    QImage sheet(columns * cellWidth, rows * cellHeight, QImage::Format_ARGB32_Premultiplied);
    sheet.fill(Qt::white);
    {
        QPainter painter(&sheet);
        for (int i = 0; i < ids.size(); ++i) {
            const int id = ids[i];
            const QPoint origin((i % columns) * cellWidth + 8, (i / columns) * cellHeight + 6);
            const QSize size = CPanelPainter::NaturalSize(id);
            const CPanelImageItem item = SheetSample(id);
            CPanelPainter::DrawItem(painter, QRectF(origin, QSizeF(size)), item);
            QImage twice = Bare(item, 2);
            twice.setDevicePixelRatio(1);
            painter.drawImage(origin + QPoint(size.width() + 8, 0), twice);
            painter.setPen(Qt::black);
            painter.drawText(QRect(origin + QPoint(0, 66), QSize(cellWidth - 16, 16)),
                             Qt::AlignLeft, QString::number(id));
        }
    }
    ASSERT_TRUE(sheet.save(QStringLiteral(QUILLON_PICTURE_SHEET)));
    EXPECT_EQ(QImage(QStringLiteral(QUILLON_PICTURE_SHEET)).size(), sheet.size());
}

TEST(PanelPainter, AStripWithoutAnyTextDrawsItsFrameAlone)
{
    // Regression: a strip with neither name, port nor comment used to read a missing line.
    for (const int id : {10070, 10072, 10079, 10081}) {
        const CPaint paint = CountPaint(Render({id, "", "", ""}, 1), 1, QSize(64, 32));
        EXPECT_GT(paint.Inside, 100) << id;
        EXPECT_EQ(paint.Outside, 0) << id;
    }
}
