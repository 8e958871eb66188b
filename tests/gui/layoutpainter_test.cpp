// The layout drawing on screen and on paper, checked at pixels whose place the geometry
// fixes: frames, corner crosses, row numbers, pictures, the selection and the clip.
#include "core/grid/gridtest.h"
#include "layoutgeometry.h"
#include "layoutpainter.h"

#include <QImage>
#include <QPainter>

namespace {

const QColor kMarker(0xff, 0x00, 0xff);

struct LayoutPainterTest : GridFixture
{
    void SetUp() override
    {
        PutAll(grid, "-1,1 KEY \tH,PD2\t\t;start; -2,1 LAMP\tH,PB5\t\t;run; -1,3 UARI\tC,200,17,5; "
                     "2,1 AND \tR; 5,4 CNT \tC,300,10,5");
    }

    QImage Draw(const CLayoutPaintOptions& options)
    {
        QImage image(CLayoutGeometry::DrawingSize(), QImage::Format_ARGB32_Premultiplied);
        image.fill(kMarker);
        QPainter painter(&image);
        CLayoutPainter::Paint(painter, grid, options);
        return image;
    }

    static CLayoutPaintOptions Screen()
    {
        CLayoutPaintOptions options;
        options.Background = QColor(0xf0, 0xf0, 0xf0);
        return options;
    }

    // Pixels in rect that are not the background.
    static int Marks(const QImage& image, const QRect& rect, const QColor& background)
    {
        int marks = 0;
        for (int y = rect.top(); y <= rect.bottom(); ++y)
            for (int x = rect.left(); x <= rect.right(); ++x)
                marks += image.pixelColor(x, y) != background;
        return marks;
    }

    // The box in which the row number of a row is written: 20 pixels left of the input cell.
    static QRect NumberBox(int row)
    {
        const QRect cell = CLayoutGeometry::CellRect(-1, row);
        return QRect(cell.left() - 20, cell.top(), 20, cell.height());
    }
};

} // namespace

TEST_F(LayoutPainterTest, ScreenShowsFramesAndCrossesAndPaperRowNumbersInstead)
{
    const CLayoutPaintOptions options = Screen();
    const QImage image = Draw(options);
    // The empty input position of row 2 and output position of row 7 are framed.
    for (const auto& [column, row] : {std::pair{-1, 2}, std::pair{-2, 7}}) {
        const QRect cell = CLayoutGeometry::CellRect(column, row);
        EXPECT_EQ(image.pixelColor(cell.center().x(), cell.top()), options.Grid);
        EXPECT_EQ(image.pixelColor(cell.left(), cell.center().y()), options.Grid);
        EXPECT_EQ(image.pixelColor(cell.center()), options.Background);
    }
    // A cross at the lower-left corner of the empty process cell (9, 20), one pixel each way.
    const QRect cell = CLayoutGeometry::CellRect(9, 20);
    const QPoint corner(cell.left(), cell.bottom() + 1);
    for (const QPoint offset :
         {QPoint(0, 0), QPoint(-1, 0), QPoint(1, 0), QPoint(0, -1), QPoint(0, 1)})
        EXPECT_EQ(image.pixelColor(corner + offset), options.Grid);
    EXPECT_EQ(image.pixelColor(corner + QPoint(2, 0)), options.Background);
    EXPECT_EQ(image.pixelColor(corner + QPoint(1, 1)), options.Background);
    EXPECT_EQ(Marks(image, NumberBox(2), options.Background), 0);
    EXPECT_EQ(Marks(image, NumberBox(40), options.Background), 0);
    EXPECT_EQ(Marks(image, image.rect(), kMarker), image.width() * image.height());
    // Paper has row numbers of its own but no frames or crosses.
    const CLayoutPaintOptions paper = CLayoutPaintOptions::ForPrinting();
    const QImage page = Draw(paper);
    EXPECT_EQ(Marks(page, CLayoutGeometry::CellRect(-1, 2), paper.Background), 0);
    EXPECT_EQ(Marks(page, CLayoutGeometry::CellRect(-2, 7), paper.Background), 0);
    EXPECT_EQ(Marks(page, QRect(cell.left() - 1, cell.bottom(), 3, 3), paper.Background), 0);
    for (const int row : {1, 2, 17, 40})
        EXPECT_GT(Marks(page, NumberBox(row), paper.Background), 10) << row;
    const QImage one = page.copy(NumberBox(1));
    EXPECT_NE(one, page.copy(NumberBox(2)));
    EXPECT_EQ(page.copy(NumberBox(11)).copy(10, 0, 10, 32), one.copy(10, 0, 10, 32)); // x1
}

TEST_F(LayoutPainterTest, HeadingsAndPicturesAreDrawnAndTallPanelsCoverTheirRows)
{
    for (const CLayoutPaintOptions& options : {Screen(), CLayoutPaintOptions::ForPrinting()}) {
        const QImage image = Draw(options);
        const auto marks = [&](const QRect& rect) {
            return Marks(image, rect, options.Background);
        };
        EXPECT_GT(marks(QRect(CLayoutGeometry::InputHeading(), QSize(60, 16))), 20);
        EXPECT_GT(marks(QRect(CLayoutGeometry::OutputHeading(), QSize(60, 16))), 20);
        EXPECT_GT(marks(CLayoutGeometry::CellRect(2, 1)), 100);
        EXPECT_GT(marks(CLayoutGeometry::CellRect(-2, 1)), 300);
        for (int row = 4; row <= 6; ++row)
            EXPECT_GT(marks(CLayoutGeometry::CellRect(5, row)), 100) << row;
        for (const int row : {1, 3, 4, 5})
            EXPECT_GT(marks(CLayoutGeometry::CellRect(-1, row)), 300) << row;
    }
    const CLayoutPaintOptions paper = CLayoutPaintOptions::ForPrinting();
    const QImage image = Draw(paper);
    EXPECT_EQ(Marks(image, CLayoutGeometry::CellRect(5, 7), paper.Background), 0);
    EXPECT_EQ(Marks(image, CLayoutGeometry::CellRect(3, 1), paper.Background), 0);
}

TEST_F(LayoutPainterTest, SelectionIsHighlightedWhereItIsAndTheClipPaintsOnlyWhatItMeets)
{
    CLayoutPaintOptions options = Screen();
    const QImage plain = Draw(options);
    options.Selection = CLayoutGeometry::BlockRect(8, 10, 10, 12);
    const QImage selected = Draw(options);
    const QRect inside = options.Selection.adjusted(4, 4, -4, -4);
    for (int y = inside.top(); y <= inside.bottom(); ++y)
        for (int x = inside.left(); x <= inside.right(); ++x)
            ASSERT_NE(selected.pixelColor(x, y), plain.pixelColor(x, y)) << x << "," << y;
    EXPECT_EQ(selected.pixelColor(options.Selection.topLeft()), options.Highlight);
    QImage outsideSelected = selected, outsidePlain = plain;
    QPainter(&outsideSelected).fillRect(options.Selection, Qt::black);
    QPainter(&outsidePlain).fillRect(options.Selection, Qt::black);
    EXPECT_EQ(outsideSelected, outsidePlain);

    options = Screen();
    options.Clip = QRect(60, 100, 120, 90);
    const QImage clipped = Draw(options);
    EXPECT_EQ(clipped.copy(options.Clip), plain.copy(options.Clip));
    EXPECT_EQ(Marks(clipped, QRect(0, 0, 700, 99), kMarker), 0);
    EXPECT_EQ(Marks(clipped, QRect(181, 0, 519, 1340), kMarker), 0);
}
