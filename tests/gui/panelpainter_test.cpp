// The panel pictures: every id draws inside its own rectangle only, ids look different,
// pins sit on the sides the panels wire to, and 2x is drawn at 2x rather than scaled up.
#include "panelcell.h"
#include "panelpainter.h"

#include <gtest/gtest.h>

#include <QHash>
#include <QImage>
#include <QPainter>

namespace {

constexpr int kMargin = 6;

// A picture drawn into rect (kMargin, kMargin, its size) of a transparent image with room
// around it, so paint outside the rectangle shows.
QImage Render(const CPanelImageItem& item, qreal ratio)
{
    const QSize size = CPanelPainter::NaturalSize(item.BitmapId);
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
    const QSize size = CPanelPainter::NaturalSize(item.BitmapId) * ratio;
    return Render(item, ratio).copy(QRect(QPoint(kMargin, kMargin) * ratio, size));
}

CPanelImageItem Sample(int id)
{
    return {id, QStringLiteral("Conveyor start button"), QStringLiteral("PD2"),
            QStringLiteral("main line 3")};
}

// Painted pixels inside the picture's rectangle and outside it.
std::pair<int, int> CountPaint(const CPanelImageItem& item, qreal ratio)
{
    const QImage image = Render(item, ratio);
    const QRect inside(QPoint(kMargin, kMargin) * ratio,
                       CPanelPainter::NaturalSize(item.BitmapId) * ratio);
    std::pair<int, int> paint;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) > 0)
                ++(inside.contains(x, y) ? paint.first : paint.second);
    return paint;
}

// Neighbouring pixel pairs whose grey levels, laid on white, differ by more than half the
// full range: a smooth upscale halves every step, so it has none of these where a true 2x
// drawing has many.
int SharpSteps(const QImage& image)
{
    const auto grey = [&image](int x, int y) { // premultiplied, so white shows through 255 - a
        const QRgb p = image.pixel(x, y);
        return qGray(qRed(p), qGreen(p), qBlue(p)) + 255 - qAlpha(p);
    };
    int steps = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            steps += (x + 1 < image.width() && qAbs(grey(x, y) - grey(x + 1, y)) > 140) +
                     (y + 1 < image.height() && qAbs(grey(x, y) - grey(x, y + 1)) > 140);
    return steps;
}

// Whether a signal leaves the 1x picture at the middle of a side: both middle pixels painted.
bool PinAt(const QImage& image, char side)
{
    const int w = image.width(), h = image.height();
    const bool across = side == 'U' || side == 'D';
    const QPoint middle((side == 'R') * (w - 1) + across * (w / 2),
                        (side == 'D') * (h - 1) + !across * (h / 2));
    const auto at = [&image](QPoint p) { return qAlpha(image.pixel(p)) > 128; };
    return at(middle) && at(middle - (across ? QPoint(1, 0) : QPoint(0, 1)));
}

} // namespace

TEST(PanelPainter, EveryIdPaintsOnlyInsideItsRectangleLooksUniqueAndIsDrawnSharpAtTwoTimes)
{
    QHash<QByteArray, int> seen;
    for (const int id : CPanelPainter::KnownIds()) {
        for (const qreal ratio : {1.0, 2.0}) {
            const auto [inside, outside] = CountPaint(Sample(id), ratio);
            EXPECT_GT(inside, 20 * ratio * ratio) << id << " at " << ratio << "x";
            EXPECT_EQ(outside, 0) << id << " at " << ratio << "x";
        }
        const QImage image = Bare({id, "", "", ""}, 1);
        const QByteArray key =
            QByteArray::number(image.width()) + ':' +
            QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
        EXPECT_FALSE(seen.contains(key)) << id << " looks like " << seen.value(key);
        seen.insert(key, id);
        // Not scaled up from the 1x picture.
        const QImage twice = Bare(Sample(id), 2);
        QImage once = Bare(Sample(id), 1);
        once.setDevicePixelRatio(1);
        const QImage upscaled =
            once.scaled(twice.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        EXPECT_GT(SharpSteps(twice), SharpSteps(upscaled) + 10) << id;
    }
    EXPECT_GE(seen.size(), 70);
    // An unknown id draws a framed question mark; a strip with neither name, port nor
    // comment used to read a missing line and now draws its frame alone.
    EXPECT_FALSE(CPanelPainter::IsKnown(4711));
    for (const int id : {4711, 10070, 10072, 10079, 10081}) {
        const auto [inside, outside] = CountPaint({id, "", "", ""}, 1);
        EXPECT_GT(inside, 50) << id;
        EXPECT_EQ(outside, 0) << id;
    }
}

TEST(PanelPainter, TextsOnAPictureChangeIt)
{
    // The timer's kind letter, the counter's value, the jump's id and a strip's name.
    for (const CPanelImageItem& item :
         {CPanelImageItem{10028, "", "", "H"}, CPanelImageItem{10026, "", "300", ""},
          CPanelImageItem{10034, "", "7", ""}, CPanelImageItem{10070, "start", "", ""}})
        EXPECT_NE(Bare(item, 1), Bare({item.BitmapId, "", "", ""}, 1)) << item.BitmapId;
    EXPECT_NE(Bare({10028, "", "", "H"}, 1), Bare({10028, "", "", "T"}, 1));
}

// Process panels: top and left pins on the first row, the right pin on every row, the
// bottom pin on the last; side-column strips lead towards the process area.
TEST(PanelPainter, PinsSitOnTheSidesThePanelsWireTo)
{
    const QStringList lines =
        QStringLiteral(
            "NOT \tR|NOT \tD|AND \tR|AND \tD|OR  \tR|OR  \tD|XOR \tR|XOR \tD|ON  \tR|ON  \tD|"
            "OFF \tR|OFF \tD|LINE\tUD|LINE\tLR|LINE\tUR|LINE\tLD|LINE\tUR,LD|LINE\tUD,LR|"
            "LINE\tUR,UD|LINE\tLR,LD|JPI \t7,U|JPI \t7,L|JPO \t7,R|JPO \t7,D|FF|RSFF|D_FF|T_FF|"
            "DLY \t1.00S|TIM \tH,1.00S|CNT \tC,5|CNT \tC,300,10,5|UART\t3|7S_B\t0|7S4_D\t1|"
            "SMOT\t2,20|UARI\tC,200,17,5|KEY \tH,PD2\t\t;start|LAMP\tH,PB5\t\t;run|"
            "BUZZ\tPB1,2000,500")
            .split(u'|');
    for (const QString& line : lines) {
        const CPanelCell cell{line};
        ASSERT_NE(cell.GetPanel(), nullptr) << line.toStdString();
        const QString sides = cell.GetPanel()->GetSides();
        const bool process = cell.IsProcess();
        const auto& items = cell.GetImage().Items;
        for (int row = 0; row < items.size(); ++row) {
            SCOPED_TRACE(testing::Message() << line.toStdString() << " row " << row);
            const QImage image = Bare(items[row], 1);
            const bool first = row == 0, last = row == items.size() - 1;
            EXPECT_EQ(PinAt(image, 'L'), sides.contains(u'L') && (!process || first));
            EXPECT_EQ(PinAt(image, 'R'), sides.contains(u'R'));
            EXPECT_TRUE(!process || !first || PinAt(image, 'U') == sides.contains(u'U'));
            EXPECT_TRUE(!process || !last || PinAt(image, 'D') == sides.contains(u'D'));
        }
    }
}
