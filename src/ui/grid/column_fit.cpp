#include "column_fit.h"

#include <QEvent>
#include <QFontMetrics>
#include <QHash>
#include <QHeaderView>
#include <QLayout>
#include <QListWidget>
#include <QPointer>
#include <QScrollBar>
#include <QTableWidget>
#include <QTimer>

namespace {

// Room for the cell's margins and the grid line.
constexpr int CELL_PADDING = 14;
// A value wider than this many average characters is cut: an address must
// not push every other column off the screen.
constexpr int MAX_CHARS = 60;

int Text_Width(const QModelIndex &index, const QFont &fallback)
{
    const QString text = index.data(Qt::DisplayRole).toString();
    if (text.isEmpty())
        return 0;
    const QVariant font = index.data(Qt::FontRole);
    const QFontMetrics fm(font.isValid() ? font.value<QFont>() : fallback);
    return fm.horizontalAdvance(text);
}

// Runs a fit once the present burst of changes is over.
class Fitter : public QObject
{
public:
    explicit Fitter(QAbstractItemView *view) : QObject(view), m_view(view)
    {
        QAbstractItemModel *model = view->model();
        for (auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved,
                            &QAbstractItemModel::columnsInserted})
            connect(model, signal, this, &Fitter::Schedule);
        connect(model, &QAbstractItemModel::dataChanged, this, &Fitter::Schedule);
        connect(model, &QAbstractItemModel::modelReset, this, &Fitter::Schedule);
        view->installEventFilter(this);
        Schedule();
    }

    void Schedule()
    {
        if (m_pending)
            return;
        m_pending = true;
        QTimer::singleShot(0, this, [this] {
            m_pending = false;
            Fit();
        });
    }

protected:
    virtual void Fit() = 0;
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Resize || event->type() == QEvent::FontChange)
            Schedule();
        return QObject::eventFilter(watched, event);
    }

    QAbstractItemView *m_view;
    bool m_pending = false;
};

class Column_Fitter : public Fitter
{
public:
    explicit Column_Fitter(QTableWidget *table) : Fitter(table), m_table(table)
    {
        // A width the screen sets is the least the column keeps.
        connect(table->horizontalHeader(), &QHeaderView::sectionResized, this, [this](int col, int, int size) {
            if (m_fitting)
                return;
            m_floor[col] = size;
            Schedule();
        });
        for (int c = 0; c < table->columnCount(); ++c)
            m_floor[c] = table->columnWidth(c);
    }

protected:
    void Fit() override
    {
        // A table that may never scroll sideways is fitted to its width by its screen.
        if (m_table->horizontalScrollBarPolicy() == Qt::ScrollBarAlwaysOff)
            return;
        m_fitting = true;
        const QFont font = m_table->font();
        const int limit = QFontMetrics(font).averageCharWidth() * MAX_CHARS;
        QAbstractItemModel *model = m_table->model();
        for (int c = 0; c < m_table->columnCount(); ++c) {
            if (m_table->isColumnHidden(c))
                continue;
            int need = 0;
            for (int r = 0; r < m_table->rowCount(); ++r)
                need = qMax(need, Text_Width(model->index(r, c), font));
            const int width = qMax(m_floor.value(c, m_table->columnWidth(c)), qMin(need + CELL_PADDING, limit));
            if (width != m_table->columnWidth(c))
                m_table->setColumnWidth(c, width);
        }
        m_fitting = false;
    }

private:
    QTableWidget *m_table;
    QHash<int, int> m_floor;
    bool m_fitting = false;
};

class Last_Column_Filler : public Fitter
{
public:
    explicit Last_Column_Filler(QTableWidget *table) : Fitter(table), m_table(table)
    {
        table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    }

protected:
    void Fit() override
    {
        int last = m_table->columnCount() - 1;
        while (last >= 0 && m_table->isColumnHidden(last))
            --last;
        if (last < 0)
            return;
        int room = m_table->contentsRect().width();
        for (int c = 0; c < last; ++c)
            room -= m_table->isColumnHidden(c) ? 0 : m_table->columnWidth(c);
        if (m_table->verticalHeader()->length() > m_table->contentsRect().height())
            room -= m_table->verticalScrollBar()->sizeHint().width();
        const QFontMetrics fm(m_table->font());
        room = qMax(room, fm.averageCharWidth() * 6);
        if (room != m_table->columnWidth(last))
            m_table->setColumnWidth(last, room);
        for (int r = 0; r < m_table->rowCount(); ++r) {
            QTableWidgetItem *item = m_table->item(r, last);
            const QString tip = item && fm.horizontalAdvance(item->text()) + CELL_PADDING > room ? item->text() : QString();
            if (item && item->toolTip() != tip)
                item->setToolTip(tip);
        }
    }

private:
    QTableWidget *m_table;
};

bool In_Layout(QLayout *layout, QWidget *w)
{
    for (int i = 0; layout && i < layout->count(); ++i) {
        QLayoutItem *item = layout->itemAt(i);
        if (item->widget() == w || In_Layout(item->layout(), w))
            return true;
    }
    return false;
}

// A list may grow only where layouts place it and nothing fixes its width.
bool May_Grow(QWidget *w)
{
    for (; w; w = w->parentWidget()) {
        if (w->maximumWidth() < QWIDGETSIZE_MAX)
            return false;
        QWidget *parent = w->parentWidget();
        if (!parent || w->isWindow() || parent->inherits("QMdiSubWindow"))
            return true;
        if (!In_Layout(parent->layout(), w))
            return false;
    }
    return true;
}

// The width a list needs to show its longest entry whole.
int List_Need(QListWidget *list)
{
    const int widest = list->count() ? list->sizeHintForColumn(0) : 0;
    // Room for the scroll bar only where the entries are more than the list shows.
    const bool scrolls = list->count() * list->sizeHintForRow(0) > list->viewport()->height();
    return widest + 2 * list->frameWidth() + (scrolls ? list->verticalScrollBar()->sizeHint().width() : 0) + 8;
}

// The screen under the menu that holds the widget, or null in a window of its own.
QWidget *Screen_Of(QWidget *w)
{
    while (w->parentWidget() && !w->isWindow() && !w->parentWidget()->inherits("QMdiSubWindow"))
        w = w->parentWidget();
    return w->parentWidget() ? w : nullptr;
}

class List_Fitter : public Fitter
{
public:
    explicit List_Fitter(QListWidget *list) : Fitter(list), m_list(list) {}

protected:
    void Fit() override
    {
        // Sizes mean something only once the screen is laid out and shown.
        if (!m_list->isVisible())
            return;
        const int need = List_Need(m_list);
        int limit = QFontMetrics(m_list->font()).averageCharWidth() * (MAX_CHARS + 10);
        // On a screen under the menu the list takes only the room the screen
        // has spare, less what its other lists still lack.
        if (QWidget *screen = Screen_Of(m_list)) {
            int spare = screen->width() - screen->minimumSizeHint().width();
            bool widest = true;
            for (QListWidget *other : screen->findChildren<QListWidget *>())
                if (other != m_list && other->isVisible() && May_Grow(other)) {
                    spare -= qMax(0, List_Need(other) - qMax(other->minimumWidth(), other->minimumSizeHint().width()));
                    widest = widest && other->minimumWidth() <= m_list->minimumWidth();
                }
            limit = m_list->width() + qMax(0, spare);
            // Where the screen's controls need more than it has, the widest
            // list gives way and shows its cut entries in tips.
            if (spare < 0 && widest && m_list->minimumWidth() > 0)
                m_list->setMinimumWidth(qMax(m_list->minimumSizeHint().width(), m_list->minimumWidth() + spare));
            // The room grows with the screen, as when it is maximised.
            if (screen != m_screen && screen != m_list)
                (m_screen = screen)->installEventFilter(this);
        }
        if (need > m_list->width() && May_Grow(m_list)) {
            m_list->setMinimumWidth(qMax(m_list->minimumWidth(), qMin(need, limit)));
            // Checked again once the layouts have taken the new width in.
            QTimer::singleShot(100, this, &List_Fitter::Schedule);
        }
        // A list never scrolls sideways: an entry still cut shows whole in its tip.
        m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        const int room = m_list->viewport()->width() - 6;
        for (int i = 0; i < m_list->count(); ++i) {
            QListWidgetItem *item = m_list->item(i);
            const bool cut = QFontMetrics(item->font()).horizontalAdvance(item->text()) > room;
            item->setToolTip(cut ? item->text() : QString());
        }
    }

private:
    QListWidget *m_list;
    QPointer<QWidget> m_screen;
};

} // namespace

void Keep_Columns_Fitted(QTableWidget *table)
{
    new Column_Fitter(table);
}

void Keep_Last_Column_Filling(QTableWidget *table)
{
    new Last_Column_Filler(table);
}

void Keep_List_Fitted(QListWidget *list)
{
    new List_Fitter(list);
}

void Keep_Screen_Fitted(QWidget *screen)
{
    for (QTableWidget *t : screen->findChildren<QTableWidget *>())
        Keep_Columns_Fitted(t);
    for (QListWidget *l : screen->findChildren<QListWidget *>())
        Keep_List_Fitted(l);
}
