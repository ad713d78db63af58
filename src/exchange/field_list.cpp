#include "field_list.h"

#include <QDropEvent>
#include <QMimeData>

namespace {
const QString Blank = QStringLiteral("<Blank>");
}

Field_List::Field_List(const QString &name, QWidget *parent) : QListWidget(parent)
{
    setObjectName(name);
    setToolTip(QStringLiteral("Drag field across"));
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(false);
    setDragDropMode(QAbstractItemView::DragDrop);
    // The drop moves the item itself; the view must not remove it a second time.
    setDefaultDropAction(Qt::CopyAction);
}

void Field_List::addField(const QString &text, int index)
{
    auto *item = new QListWidgetItem(text, this);
    item->setData(Qt::UserRole, index);
}

void Field_List::takeFrom(int row, int onto)
{
    if (!m_partner || row < 0 || row >= m_partner->count())
        return;
    QListWidgetItem *item = m_partner->takeItem(row);
    const bool blank = item->data(Qt::UserRole).toInt() == -1;
    if (blank && m_partner->m_keepsBlank)
        m_partner->addField(Blank, -1);
    QListWidgetItem *target = m_keepsBlank ? nullptr : this->item(onto);
    if (blank && m_keepsBlank) {
        // The list that keeps its own blank needs no second one.
        delete item;
    } else if (target && target->data(Qt::UserRole).toInt() == -1) {
        delete takeItem(onto);
        insertItem(onto, item);
    } else {
        addItem(item);
    }
    clearSelection();
    m_partner->clearSelection();
}

QStringList Field_List::mimeTypes() const
{
    return {QLatin1String(Mime_Type)};
}

QMimeData *Field_List::mimeData(const QList<QListWidgetItem *> &items) const
{
    auto *data = new QMimeData;
    if (!items.isEmpty())
        data->setData(QLatin1String(Mime_Type), objectName().toUtf8() + '\t' + QByteArray::number(row(items.first())));
    return data;
}

void Field_List::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasFormat(QLatin1String(Mime_Type)))
        event->acceptProposedAction();
}

void Field_List::dragMoveEvent(QDragMoveEvent *event)
{
    if (event->mimeData()->hasFormat(QLatin1String(Mime_Type)))
        event->acceptProposedAction();
}

void Field_List::dropEvent(QDropEvent *event)
{
    const QList<QByteArray> parts = event->mimeData()->data(QLatin1String(Mime_Type)).split('\t');
    event->setDropAction(Qt::CopyAction);
    event->accept();
    // Only items from the other list land here.
    if (parts.size() == 2 && m_partner && QString::fromUtf8(parts[0]) == m_partner->objectName())
        takeFrom(parts[1].toInt(), indexAt(event->position().toPoint()).row());
}
