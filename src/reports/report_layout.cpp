// Lays a filled report out on pages and paints it. Everything is measured on
// the device it is painted on, so a PDF and a printed page break alike.
#include "report.h"

#include <QFontMetricsF>
#include <QHash>
#include <QPageLayout>
#include <QPageSize>
#include "core/page_setup.h"
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr double Eps = 0.3;  // mm: controls this close count as one row

struct Piece
{
    const Report_Control *control = nullptr;
    QRectF rect;      // mm, band coordinates
    QString text;
};

// The smallest thing a page break may not cut: one line of a label, one row
// of parallel columns, a rule, an image, or a whole detail row.
struct Unit
{
    double top = 0, bottom = 0;
    std::vector<Piece> pieces;
};

struct Block
{
    std::vector<Unit> units;
    double height = 0;
};

struct Placed
{
    const Unit *unit;
    double dy;
};

class Painter_Context
{
public:
    explicit Painter_Context(QPaintDevice *device) : m_device(device), k(device->logicalDpiY() / 25.4) {}

    QFont Font(const Report_Control &c) const
    {
        QFont f(c.family);
        f.setPointSizeF(c.size);
        f.setBold(c.bold);
        f.setItalic(c.italic);
        return f;
    }

    double Line_Height(const Report_Control &c) const
    {
        return QFontMetricsF(Font(c), m_device).lineSpacing() / k;
    }

    // One logical line broken into the lines that fit the width.
    QStringList Wrap(const QString &line, const Report_Control &c) const
    {
        if (line.isEmpty())
            return {QString()};
        QTextLayout layout(line, Font(c), m_device);
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        layout.setTextOption(option);
        QStringList out;
        layout.beginLayout();
        for (QTextLine l = layout.createLine(); l.isValid(); l = layout.createLine()) {
            l.setLineWidth(std::max(1.0, c.w * k));
            out << line.mid(l.textStart(), l.textLength()).trimmed();
        }
        layout.endLayout();
        return out.isEmpty() ? QStringList{QString()} : out;
    }

    QPaintDevice *m_device;
    double k;  // device units per mm
};

QStringList Logical_Lines(const QString &text)
{
    if (text.isEmpty())
        return {};
    QString t = text;
    t.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    QStringList lines = t.split(QLatin1Char('\n'));
    // Line breaks at the end of a text end its lines; they add no height.
    while (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

QString Field_Text(const QVariant &v)
{
    if (v.isNull())
        return QString();
    if (v.typeId() == QMetaType::Double) {
        const double d = v.toDouble();
        if (d == std::floor(d) && std::abs(d) < 1e15)
            return QString::number(static_cast<qint64>(d));
    }
    return v.toString();
}

// A control, or the parallel columns of one "rows" key, as laid out.
struct Entity
{
    std::vector<const Report_Control *> members;
    double dTop = 0, dBottom = 0;   // as designed
    double height = 0;              // as filled
    double newTop = 0;
    // lines[member][row] = the wrapped lines of that member's logical line
    std::vector<std::vector<QStringList>> lines;
    std::vector<double> rowHeights;
};

Block Lay_Out_Band(const Report_Band &band, const Painter_Context &ctx, const RowSet *rows, int row,
                   bool keepTogether)
{
    // Gather entities: parallel columns join under their key.
    std::vector<Entity> entities;
    QHash<QString, size_t> byKey;
    for (const Report_Control &c : band.controls) {
        if (!c.Visible)
            continue;
        const double top = std::min(c.y, c.y + c.h), bottom = std::max(c.y, c.y + c.h);
        if (!c.rows.isEmpty() && byKey.contains(c.rows)) {
            Entity &e = entities[byKey.value(c.rows)];
            e.members.push_back(&c);
            e.dTop = std::min(e.dTop, top);
            e.dBottom = std::max(e.dBottom, bottom);
            continue;
        }
        if (!c.rows.isEmpty())
            byKey.insert(c.rows, entities.size());
        Entity e;
        e.members.push_back(&c);
        e.dTop = top;
        e.dBottom = bottom;
        entities.push_back(e);
    }

    // Measure: text wraps inside its label; parallel columns share row heights.
    for (Entity &e : entities) {
        const Report_Control &first = *e.members.front();
        if (first.kind == Report_Control::Line || first.kind == Report_Control::Image) {
            e.height = e.dBottom - e.dTop;
            continue;
        }
        size_t rowCount = 0;
        for (const Report_Control *c : e.members) {
            QString text = c->Caption;
            if (c->kind == Report_Control::Field)
                text = rows && row >= 0 ? Field_Text(rows->value(row, rows->fieldIndex(c->column))) : QString();
            std::vector<QStringList> wrapped;
            for (const QString &line : Logical_Lines(text))
                wrapped.push_back(ctx.Wrap(line, *c));
            rowCount = std::max(rowCount, wrapped.size());
            e.lines.push_back(wrapped);
        }
        double total = 0;
        for (size_t r = 0; r < rowCount; ++r) {
            double h = 0;
            for (size_t m = 0; m < e.members.size(); ++m)
                if (r < e.lines[m].size())
                    h = std::max(h, e.lines[m][r].size() * ctx.Line_Height(*e.members[m]));
            e.rowHeights.push_back(h);
            total += h;
        }
        const bool empty = rowCount == 0;
        e.height = empty && first.shrink ? 0 : std::max(e.dBottom - e.dTop, total);
    }

    // Push down: each control keeps its gap to the row just above it, and
    // never rises into anything above that grew.
    std::vector<size_t> order(entities.size());
    for (size_t i = 0; i < order.size(); ++i)
        order[i] = i;
    std::stable_sort(order.begin(), order.end(), [&](size_t a, size_t b) {
        return entities[a].dTop != entities[b].dTop ? entities[a].dTop < entities[b].dTop
                                                    : entities[a].dBottom < entities[b].dBottom;
    });
    double lowestDesigned = 0, lowestFilled = 0;
    for (size_t i = 0; i < order.size(); ++i) {
        Entity &e = entities[order[i]];
        double nearest = -1, lowest = 0;
        for (size_t j = 0; j < i; ++j) {
            const Entity &g = entities[order[j]];
            if (g.dBottom <= e.dTop + Eps) {
                nearest = std::max(nearest, g.dBottom);
                lowest = std::max(lowest, g.newTop + g.height);
            }
        }
        e.newTop = nearest < 0 ? e.dTop : lowest + (e.dTop - nearest);
        lowestDesigned = std::max(lowestDesigned, e.dBottom);
        lowestFilled = std::max(lowestFilled, e.newTop + e.height);
    }

    Block block;
    block.height = entities.empty() ? band.height : std::max(0.0, band.height + lowestFilled - lowestDesigned);
    for (const Entity &e : entities) {
        const Report_Control &first = *e.members.front();
        if (first.kind == Report_Control::Line || first.kind == Report_Control::Image) {
            Unit u{e.newTop, e.newTop + e.height, {}};
            u.pieces.push_back({&first, QRectF(first.x, e.newTop + (first.y - e.dTop), first.w, first.h), QString()});
            block.units.push_back(u);
            continue;
        }
        double y = e.newTop;
        for (size_t r = 0; r < e.rowHeights.size(); ++r) {
            // A row of parallel columns is one unit; a single label's wrapped
            // lines may part at a page break like lines of a paragraph.
            std::vector<Unit> lineUnits;
            for (size_t m = 0; m < e.members.size(); ++m) {
                if (r >= e.lines[m].size())
                    continue;
                const Report_Control *c = e.members[m];
                const double lh = ctx.Line_Height(*c);
                const QStringList &vis = e.lines[m][r];
                for (int v = 0; v < vis.size(); ++v) {
                    const double top = y + v * lh;
                    Piece p{c, QRectF(c->x, top, c->w, lh), vis.at(v)};
                    if (e.members.size() == 1) {
                        lineUnits.push_back(Unit{top, top + lh, {p}});
                    } else {
                        if (lineUnits.empty())
                            lineUnits.push_back(Unit{y, y + e.rowHeights[r], {}});
                        lineUnits.front().pieces.push_back(p);
                    }
                }
            }
            for (Unit &u : lineUnits)
                block.units.push_back(std::move(u));
            y += e.rowHeights[r];
        }
        if (e.rowHeights.empty() && first.kind == Report_Control::Page_Number)
            block.units.push_back(Unit{e.newTop, e.newTop + e.height,
                                       {{&first, QRectF(first.x, e.newTop, first.w, e.height), QString()}}});
    }
    if (keepTogether && !block.units.empty()) {
        Unit all{0, block.height, {}};
        for (Unit &u : block.units) {
            all.bottom = std::max(all.bottom, u.bottom);
            for (Piece &p : u.pieces)
                all.pieces.push_back(p);
        }
        block.units = {all};
    }
    std::stable_sort(block.units.begin(), block.units.end(),
                     [](const Unit &a, const Unit &b) { return a.top < b.top; });
    return block;
}

class Paginator
{
public:
    Paginator(double pageBottom, std::vector<const Block *> repeats) : m_bottom(pageBottom), m_repeats(repeats)
    {
        m_pages.emplace_back();
    }

    void Add(const Block &block)
    {
        double start = 0;
        for (;;) {
            const double dy = m_cursor - start;
            double cut = -1;
            for (const Unit &u : block.units)
                if (u.top >= start - 1e-9 && u.bottom + dy > m_bottom + 1e-6 && (cut < 0 || u.top < cut))
                    cut = u.top;
            if (cut < 0) {
                Place(block, start, 1e300, dy);
                m_cursor += block.height - start;
                return;
            }
            if (cut <= start + 1e-9 && m_freshPage) {
                // Taller than a page: it stands alone, cut at the foot.
                for (const Unit &u : block.units)
                    if (u.top >= start - 1e-9 && u.top <= cut + 1e-9)
                        m_pages.back().push_back({&u, dy});
                double next = 1e300;
                for (const Unit &u : block.units)
                    if (u.top > cut + 1e-9)
                        next = std::min(next, u.top);
                if (next > 1e299)
                    return;
                cut = next;
            } else {
                Place(block, start, cut, dy);
            }
            New_Page();
            start = cut;
        }
    }

    std::vector<std::vector<Placed>> Pages() const { return m_pages; }

private:
    void Place(const Block &block, double from, double to, double dy)
    {
        for (const Unit &u : block.units)
            if (u.top >= from - 1e-9 && u.top < to - 1e-9)
                m_pages.back().push_back({&u, dy});
        if (!block.units.empty())
            m_freshPage = false;
    }

    void New_Page()
    {
        m_pages.emplace_back();
        m_cursor = 0;
        for (const Block *b : m_repeats) {
            for (const Unit &u : b->units)
                m_pages.back().push_back({&u, m_cursor});
            m_cursor += b->height;
        }
        m_freshPage = true;
    }

    double m_bottom;
    std::vector<const Block *> m_repeats;
    std::vector<std::vector<Placed>> m_pages;
    double m_cursor = 0;
    bool m_freshPage = true;
};

void Paint_Piece(QPainter &p, const Piece &piece, double dy, double k, int page, int pages)
{
    const Report_Control &c = *piece.control;
    const QRectF r(piece.rect.x() * k, (piece.rect.y() + dy) * k, piece.rect.width() * k, piece.rect.height() * k);
    switch (c.kind) {
    case Report_Control::Line: {
        QPen pen(Qt::black);
        pen.setWidthF(c.pen * k);
        p.setPen(pen);
        p.drawLine(QPointF(r.left(), r.top()), QPointF(r.right(), r.bottom()));
        return;
    }
    case Report_Control::Image:
        if (!c.image.isNull()) {
            // Kept in proportion inside its frame.
            QSizeF s = c.image.size();
            s.scale(r.size(), Qt::KeepAspectRatio);
            p.drawImage(QRectF(r.topLeft(), s), c.image);
        }
        return;
    default:
        break;
    }
    QFont f(c.family);
    f.setPointSizeF(c.size);
    f.setBold(c.bold);
    f.setItalic(c.italic);
    p.setFont(f);
    p.setPen(Qt::black);
    QString text = piece.text;
    if (c.kind == Report_Control::Page_Number)
        text = c.Caption.arg(page).arg(pages);
    p.drawText(r, c.align | Qt::AlignTop | Qt::TextSingleLine, text);
}

} // namespace

int Report::Render(QPagedPaintDevice *device) const
{
    QPageLayout layout(QPageSize(QPageSize::A4), m_landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
                       QMarginsF(m_margin, m_margin, m_margin, m_margin), QPageLayout::Millimeter);
    // The paper and margins chosen under Page Setup; the sheet keeps its own orientation.
    if (Page_Chosen()) {
        const QPageLayout chosen = Chosen_Page_Layout();
        layout.setPageSize(chosen.pageSize());
        layout.setMargins(chosen.margins(QPageLayout::Millimeter));
    }
    device->setPageLayout(layout);
    QPainter painter;
    if (!painter.begin(device))
        return 0;
    const Painter_Context ctx(device);
    const double contentHeight = device->height() / ctx.k;

    const Block footer = Lay_Out_Band(Sections(QStringLiteral("Section3")), ctx, nullptr, -1, true);
    std::vector<Block> blocks;
    blocks.reserve(4 + m_rows.rowCount());
    std::vector<const Block *> repeats;
    auto add = [&](const QString &name) {
        const Report_Band &band = Sections(name);
        blocks.push_back(Lay_Out_Band(band, ctx, nullptr, -1, false));
        if (band.repeat)
            repeats.push_back(&blocks.back());
    };
    add(QStringLiteral("Section4"));
    add(QStringLiteral("Section2"));
    const Report_Band &detail = Sections(QStringLiteral("Section1"));
    for (int r = 0; r < m_rows.rowCount(); ++r)
        blocks.push_back(Lay_Out_Band(detail, ctx, &m_rows, r, true));
    add(QStringLiteral("Section5"));

    Paginator pages(contentHeight - footer.height, repeats);
    for (const Block &b : blocks)
        pages.Add(b);
    const auto plan = pages.Pages();
    const int count = static_cast<int>(plan.size());
    for (int i = 0; i < count; ++i) {
        if (i > 0)
            device->newPage();
        for (const Placed &pl : plan[i])
            for (const Piece &piece : pl.unit->pieces)
                Paint_Piece(painter, piece, pl.dy, ctx.k, i + 1, count);
        for (const Unit &u : footer.units)
            for (const Piece &piece : u.pieces)
                Paint_Piece(painter, piece, contentHeight - footer.height, ctx.k, i + 1, count);
    }
    painter.end();
    return count;
}
