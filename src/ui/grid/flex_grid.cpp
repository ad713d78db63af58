#include "flex_grid.h"
#include "ui/geometry_store.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTableView>

namespace {

constexpr Qt::ItemFlags DATA_FLAGS = Qt::ItemIsEnabled | Qt::ItemIsSelectable;

// A data cell that keeps its text itself. A refresh of a large grid makes
// and drops tens of thousands of cells, and the general list of roles costs
// each of them an allocation; other roles (colours, tips) still go there.
class Text_Cell : public QTableWidgetItem
{
public:
    explicit Text_Cell(const QString &text) : QTableWidgetItem(UserType), m_text(text) { setFlags(DATA_FLAGS); }

    QVariant data(int role) const override
    {
        if (role == Qt::DisplayRole || role == Qt::EditRole)
            return m_text;
        return QTableWidgetItem::data(role);
    }

    void setData(int role, const QVariant &value) override
    {
        if (role != Qt::DisplayRole && role != Qt::EditRole) {
            QTableWidgetItem::setData(role, value);
            return;
        }
        QString text = value.toString();
        if (text == m_text)
            return;
        m_text = std::move(text);
        if (QTableWidget *table = tableWidget()) {
            const QModelIndex index = table->model()->index(table->row(this), table->column(this));
            emit table->model()->dataChanged(index, index, {Qt::DisplayRole, Qt::EditRole});
        }
    }

    QTableWidgetItem *clone() const override { return new Text_Cell(*this); }

private:
    QString m_text;
};

} // namespace

FlexGrid::FlexGrid(QWidget *parent) : QTableWidget(parent)
{
    setObjectName(QStringLiteral("MSFlexGrid1"));
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectItems);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    horizontalHeader()->hide();
    verticalHeader()->hide();
    const int rowHeight = fontMetrics().height() + 6;
    verticalHeader()->setMinimumSectionSize(rowHeight);
    verticalHeader()->setDefaultSectionSize(rowHeight);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);

    // The caption rows drawn again over the top of the data, so that they stay
    // put while the rows scroll beneath them.
    m_captions = new QTableView(this);
    m_captions->setObjectName(QStringLiteral("captionRows"));
    m_captions->setModel(model());
    m_captions->setFocusPolicy(Qt::NoFocus);
    m_captions->setSelectionMode(QAbstractItemView::NoSelection);
    m_captions->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_captions->horizontalHeader()->hide();
    m_captions->verticalHeader()->hide();
    m_captions->verticalHeader()->setMinimumSectionSize(rowHeight);
    m_captions->verticalHeader()->setDefaultSectionSize(rowHeight);
    m_captions->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_captions->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_captions->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_captions->setFrameShape(QFrame::NoFrame);
    m_captions->setWordWrap(false);
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, m_captions->horizontalScrollBar(),
            &QScrollBar::setValue);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int col, int, int size) { m_captions->setColumnWidth(col, size); });
    viewport()->stackUnder(m_captions);
}

void FlexGrid::Set_Fixed_Rows(int rows)
{
    m_fixed = rows;
    for (int r = 0; r < qMin(rows, rowCount()); ++r)
        for (int c = 0; c < columnCount(); ++c)
            Style_Caption_Cell(r, c);
    Place_Captions();
}

void FlexGrid::Set_Size(int rows, int cols)
{
    const int oldRows = rowCount();
    const int oldCols = columnCount();
    setColumnCount(cols);
    setRowCount(rows);
    for (int r = 0; r < qMin(m_fixed, rows); ++r)
        for (int c = (r < oldRows ? oldCols : 0); c < cols; ++c)
            Style_Caption_Cell(r, c);
    for (int c = 0; c < cols; ++c)
        m_captions->setColumnHidden(c, isColumnHidden(c));
    Place_Captions();
}

QString FlexGrid::Text(int row, int col) const
{
    const QTableWidgetItem *it = item(row, col);
    return it ? it->text() : QString();
}

void FlexGrid::Set_Text(int row, int col, const QString &text)
{
    // With updates off the grid is being filled: each cell's change signal
    // would reach both views for nothing, and turning updates back on
    // repaints the whole grid anyway.
    const QSignalBlocker filling(updatesEnabled() ? nullptr : model());
    QTableWidgetItem *it = item(row, col);
    if (it) {
        it->setText(text);
        return;
    }
    if (text.isEmpty())
        return;
    // The text goes in before the cell joins the table: one change, not two.
    it = new Text_Cell(text);
    setItem(row, col, it);
    if (row < m_fixed)
        Style_Caption_Cell(row, col);
}

void FlexGrid::Set_Col_Width(int col, int twips)
{
    setColumnHidden(col, twips <= 0);
    m_captions->setColumnHidden(col, twips <= 0);
    if (twips > 0) {
        setColumnWidth(col, Twips_To_Pixels(twips));
        m_captions->setColumnWidth(col, Twips_To_Pixels(twips));
    }
}

void FlexGrid::Flush_Layout()
{
    executeDelayedItemsLayout();
}

void FlexGrid::Style_Caption_Cell(int row, int col)
{
    QTableWidgetItem *it = item(row, col);
    if (!it) {
        it = new QTableWidgetItem;
        setItem(row, col, it);
    }
    // Disabled cells take neither the cursor nor a click.
    it->setFlags(Qt::NoItemFlags);
    it->setForeground(palette().brush(QPalette::Active, QPalette::ButtonText));
    it->setBackground(palette().brush(QPalette::Active, QPalette::Button));
    QFont f = font();
    f.setBold(true);
    it->setFont(f);
}

int FlexGrid::Caption_Height() const
{
    int h = 0;
    for (int r = 0; r < qMin(m_fixed, rowCount()); ++r)
        h += rowHeight(r);
    return h;
}

void FlexGrid::Place_Captions()
{
    if (!m_captions)
        return;
    const int h = Caption_Height();
    if (h <= 0) {
        m_captions->hide();
        return;
    }
    const QRect vp = viewport()->geometry();
    m_captions->setGeometry(vp.x(), vp.y(), vp.width(), qMin(h, vp.height()));
    m_captions->horizontalScrollBar()->setValue(horizontalScrollBar()->value());
    m_captions->show();
}

QModelIndex FlexGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    QModelIndex next = QTableWidget::moveCursor(action, modifiers);
    if (next.isValid() && next.row() < m_fixed) {
        const int col = next.column();
        next = model()->index(qMin(m_fixed, rowCount() - 1), col);
    }
    return next;
}

void FlexGrid::scrollTo(const QModelIndex &index, ScrollHint hint)
{
    QTableWidget::scrollTo(index, hint);
    if (!index.isValid() || index.row() < m_fixed)
        return;
    // A row that came to rest under the captions moves down into view.
    const int top = rowViewportPosition(index.row());
    const int covered = Caption_Height() - top;
    if (covered > 0)
        verticalScrollBar()->setValue(verticalScrollBar()->value() - covered);
}

void FlexGrid::resizeEvent(QResizeEvent *event)
{
    QTableWidget::resizeEvent(event);
    Place_Captions();
}

void FlexGrid::updateGeometries()
{
    QTableWidget::updateGeometries();
    Place_Captions();
}
