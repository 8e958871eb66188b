#include "layoutpainter.h"

#include "layoutgeometry.h"
#include "panelgrid.h"
#include "panelpainter.h"
#include "picturecache.h"
#include "stringtable.h"

#include <QFont>
#include <QPainter>

namespace {

// The drawing is 96 units to the inch, so 9 points are 12 units on screen and on paper.
constexpr int kTextPixels = 12;

QFont DrawingFont(const CLayoutPaintOptions& options)
{
    QFont font;
    if (options.Printing)
        font.setFamily(CStringTable::Get(Ids::PrintFontFace));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(kTextPixels);
    return font;
}

class CPass
{
  public:
    CPass(QPainter& painter, const CPanelGrid& grid, const CLayoutPaintOptions& options)
        : m_painter(painter), m_grid(grid), m_options(options),
          m_clip(options.Clip.isNull() ? QRect(QPoint(0, 0), CLayoutGeometry::DrawingSize())
                                       : options.Clip)
    {
    }

    void Run()
    {
        m_painter.fillRect(m_clip, m_options.Background);
        m_painter.setFont(DrawingFont(m_options));
        Headings();
        SideColumn(CPanelGrid::GetInputColumn());
        SideColumn(CPanelGrid::GetOutputColumn());
        ProcessArea();
        Selection();
    }

  private:
    bool Needed(const QRect& rect) const { return rect.intersects(m_clip); }

    void Headings()
    {
        m_painter.setPen(m_options.Text);
        const QPoint input = CLayoutGeometry::InputHeading(),
                     output = CLayoutGeometry::OutputHeading();
        m_painter.drawText(QRect(input, QSize(CLayoutGeometry::kSideWidth * 2, 20)),
                           Qt::AlignLeft | Qt::AlignTop, CStringTable::Get(Ids::TextInput));
        m_painter.drawText(QRect(output, QSize(CLayoutGeometry::kSideWidth * 2, 20)),
                           Qt::AlignLeft | Qt::AlignTop, CStringTable::Get(Ids::TextOutput));
    }

    // A panel draws its whole picture from its top cell; a continuation cell draws nothing.
    void Cell(int column, int row, const CPanelCell& cell)
    {
        if (!cell.GetPanel())
            return;
        const QRect top = CLayoutGeometry::CellRect(column, row);
        const QRect whole(top.topLeft(), QSize(top.width(), top.height() * cell.GetHeight()));
        if (!Needed(whole))
            return;
        // Paper gets vectors; the screen gets pictures drawn once and blitted.
        if (m_options.Printing)
            CPanelPainter::DrawImage(m_painter, top.topLeft(), cell.GetImage());
        else
            CPictureCache::DrawImage(m_painter, top.topLeft(), cell.GetImage());
    }

    void SideColumn(int column)
    {
        const bool input = column == CPanelGrid::GetInputColumn();
        for (int row = 1; row <= CPanelGrid::GetRowCount(); ++row) {
            const QRect rect = CLayoutGeometry::CellRect(column, row);
            if (const CPanelCell* cell = m_grid.GetCell(column, row)) {
                Cell(column, row, *cell);
            } else if (!m_options.Printing && Needed(rect)) {
                m_painter.setPen(QPen(m_options.Grid, 1));
                m_painter.setBrush(Qt::NoBrush);
                m_painter.drawRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5));
            }
            if (m_options.Printing && input) {
                const QRect numberBox(QPoint(rect.left() - 20, rect.top()), rect.bottomRight());
                if (Needed(numberBox)) {
                    m_painter.setPen(m_options.Text);
                    m_painter.drawText(numberBox,
                                       Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                                       QStringLiteral("%1").arg(row, 2, 10, QLatin1Char('0')));
                }
            }
        }
    }

    // The crosses go down first, so no cross is drawn over a tall panel's picture.
    void ProcessArea()
    {
        if (!m_options.Printing) {
            for (int column = 1; column <= CPanelGrid::GetColumnCount(); ++column)
                for (int row = 1; row <= CPanelGrid::GetRowCount(); ++row) {
                    const QRect rect = CLayoutGeometry::CellRect(column, row);
                    const QPoint corner(rect.left(), rect.top() + rect.height());
                    m_painter.fillRect(QRect(corner.x() - 1, corner.y(), 3, 1), m_options.Grid);
                    m_painter.fillRect(QRect(corner.x(), corner.y() - 1, 1, 3), m_options.Grid);
                }
        }
        for (int column = 1; column <= CPanelGrid::GetColumnCount(); ++column)
            for (int row = 1; row <= CPanelGrid::GetRowCount(); ++row)
                if (const CPanelCell* cell = m_grid.GetCell(column, row))
                    Cell(column, row, *cell);
    }

    void Selection()
    {
        if (m_options.Selection.isNull() || !Needed(m_options.Selection))
            return;
        QColor fill = m_options.Highlight;
        fill.setAlpha(60);
        m_painter.fillRect(m_options.Selection, fill);
        m_painter.setPen(QPen(m_options.Highlight, 2, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        m_painter.setBrush(Qt::NoBrush);
        m_painter.drawRect(QRectF(m_options.Selection).adjusted(1, 1, -1, -1));
    }

    QPainter& m_painter;
    const CPanelGrid& m_grid;
    const CLayoutPaintOptions& m_options;
    QRect m_clip;
};

} // namespace

void CLayoutPainter::Paint(QPainter& painter, const CPanelGrid& grid,
                           const CLayoutPaintOptions& options)
{
    painter.save();
    if (!options.Clip.isNull())
        painter.setClipRect(options.Clip,
                            painter.hasClipping() ? Qt::IntersectClip : Qt::ReplaceClip);
    CPass(painter, grid, options).Run();
    painter.restore();
}
