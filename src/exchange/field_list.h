#pragma once
#include <QListWidget>

// One of the two lists whose items are dragged between them. A drop moves
// the dragged item to the end of the list it lands on, takes it from where it
// came and clears both selections. The source list always keeps one
// "<Blank>", so that every missing field can be given one. A field dropped
// on a placed "<Blank>" takes that blank's place instead, so that the fields
// matched by their headings keep their positions.
class Field_List : public QListWidget
{
    Q_OBJECT
public:
    explicit Field_List(const QString &name, QWidget *parent = nullptr);
    void setPartner(Field_List *other) { m_partner = other; }
    void setKeepsBlank(bool keep) { m_keepsBlank = keep; }

    void addField(const QString &text, int index);
    // Moves the item at row of the partner list to the end of this one, or
    // onto this list's placed "<Blank>" at row onto.
    void takeFrom(int row, int onto = -1);

    static constexpr const char *Mime_Type = "application/x-strathmark-field";

protected:
    QMimeData *mimeData(const QList<QListWidgetItem *> &items) const override;
    QStringList mimeTypes() const override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    Field_List *m_partner = nullptr;
    bool m_keepsBlank = false;
};
