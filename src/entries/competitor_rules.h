#pragma once
#include "row_marks.h"
#include "ui/grid/grid_rules.h"

// The competitors grid apart from its widgets: 25 columns over the kept
// statement (the plain one, or a search), the cell checks against the event
// codes, and the two save paths. Only rows carrying a mark are written back,
// which is what keeps a save quick with well over a thousand dancers.
class Competitor_Rules : public GridRules
{
public:
    explicit Competitor_Rules(short competitionId);

    short competitionId() const { return m_comp; }
    // The statement behind the grid; a search replaces it until the screen closes.
    QString statement() const { return m_statement; }
    void setStatement(const QString &sql) { m_statement = sql; }
    // The event code table of the lookup list, with its spare empty place.
    const QStringList &codes() const { return m_codes; }
    void setCodes(const QStringList &codes) { m_codes = codes; }
    Row_Marks &marks() { return m_marks; }

    QString Select_Sql() const override;
    QList<QStringList> Captions(bool afterSave) const override;
    QString New_Row_Filler() const override;
    std::optional<Cell_Refusal> Check_Cell(int row, int col, QString &text) override;
    void Row_Changed(int row) override;
    void Insert_Row(Save_Work &w, int gridRow) override;
    bool Row_Needs_Write(int gridRow) const override;
    std::optional<Cell_Refusal> Write_Row(Save_Work &w, int record, int gridRow) override;
    void Delete_Dependents(Connection &conn, const QStringList &row) override;
    void Row_Moved(int from, int to) override { m_marks.move(from, to); }
    void Row_Removed(int row) override { m_marks.remove(row); }
    void Rows_Reloaded() override { m_marks.clearAll(); }

private:
    short m_comp;
    QString m_statement;
    QStringList m_codes{QString()};
    Row_Marks m_marks;
};
