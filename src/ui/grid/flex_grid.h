#pragma once
#include <QTableWidget>

class QTableView;

// The table of a grid screen: every cell is text, the caption rows are real
// rows at the top (so row numbers count them) and stay in view while the data
// scrolls beneath them. The cursor never stands in a caption row. Cells are
// not edited in place: the screen's floating editor does that.
class FlexGrid : public QTableWidget
{
    Q_OBJECT
public:
    explicit FlexGrid(QWidget *parent = nullptr);

    void Set_Fixed_Rows(int rows);
    int Fixed_Rows() const { return m_fixed; }
    // Row and column counts; new cells are empty, caption cells styled.
    void Set_Size(int rows, int cols);

    QString Text(int row, int col) const;
    void Set_Text(int row, int col, const QString &text);
    // Width in twips; 0 hides the column.
    void Set_Col_Width(int col, int twips);
    // Finishes any pending layout so that cell places are final.
    void Flush_Layout();

    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void resizeEvent(QResizeEvent *event) override;
    void updateGeometries() override;

private:
    void Style_Caption_Cell(int row, int col);
    int Caption_Height() const;
    void Place_Captions();

    int m_fixed = 1;
    QTableView *m_captions = nullptr;
};
