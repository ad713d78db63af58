#include "column_fit.h"

#include <QEvent>
#include <QFontMetrics>
#include <QHash>
#include <QHeaderView>
#include <QLayout>
#include <QListWidget>
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

// A list may grow only where a layout places it and nothing fixes its width.
bool May_Grow(QWidget *w)
{
    for (; w; w = w->parentWidget()) {
        if (w->maximumWidth() < QWIDGETSIZE_MAX)
            return false;
        QWidget *parent = w->parentWidget();
        if (!parent || w->isWindow() || parent->inherits("QMdiSubWindow"))
            return true;
        if (!parent->layout() || parent->layout()->indexOf(w) < 0)
            return false;
    }
    return true;
}

class List_Fitter : public Fitter
{
public:
    explicit List_Fitter(QListWidget *list) : Fitter(list), m_list(list) {}

protected:
    void Fit() override
    {
        const int widest = m_list->count() ? m_list->sizeHintForColumn(0) : 0;
        const int chrome = 2 * m_list->frameWidth() + m_list->verticalScrollBar()->sizeHint().width() + 8;
        const int limit = QFontMetrics(m_list->font()).averageCharWidth() * (MAX_CHARS + 10);
        if (widest + chrome > m_list->width() && May_Grow(m_list))
            m_list->setMinimumWidth(qMin(widest + chrome, limit));
        const int room = m_list->viewport()->width() - 6;
        for (int i = 0; i < m_list->count(); ++i) {
            QListWidgetItem *item = m_list->item(i);
            const bool cut = QFontMetrics(item->font()).horizontalAdvance(item->text()) > room;
            item->setToolTip(cut ? item->text() : QString());
        }
    }

private:
    QListWidget *m_list;
};

} // namespace

void Keep_Columns_Fitted(QTableWidget *table)
{
    new Column_Fitter(table);
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
