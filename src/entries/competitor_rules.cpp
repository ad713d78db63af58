#include "competitor_rules.h"
#include "competitor_checks.h"
#include "competitor_columns.h"
#include "competitor_delete.h"
#include "competitor_save.h"

Competitor_Rules::Competitor_Rules(short competitionId) : m_comp(competitionId)
{
    table = QStringLiteral("competitors");
    fixedRows = 1;
    widths = Competitor_Widths();
    required = {1, 2, 3};
    commitMarksDirty = true;
    emptyCellIsNull = true;
    texts.failureTitle = QStringLiteral("Data Error");
    texts.failureLine = QStringLiteral("There was an error updating Competitor Number: ");
    texts.hintLine = QStringLiteral(
        "Please ensure that the Number, Forename and Surname are entered and that 'Number Field' is unique!'");
    texts.faultTitle = QStringLiteral("Data Error");
    texts.faultText = QStringLiteral("Invalid Number! Re-enter or Hit <Escape> to exit");
    texts.deleteQuestion = Delete_Competitor_Question();
    m_statement = Competitor_Statement(m_comp) + QStringLiteral(" ORDER BY 2 DESC");
}

QString Competitor_Rules::Select_Sql() const
{
    return m_statement;
}

QList<QStringList> Competitor_Rules::Captions(bool) const
{
    return {Competitor_Captions()};
}

QString Competitor_Rules::New_Row_Filler() const
{
    return QString::number(m_comp);
}

std::optional<Cell_Refusal> Competitor_Rules::Check_Cell(int, int col, QString &text)
{
    const Cell_Check c = Check_Competitor_Cell(col, text, m_codes);
    if (c.ok)
        return std::nullopt;
    return Cell_Refusal{c.message, c.title, vbExclamation};
}

void Competitor_Rules::Row_Changed(int row)
{
    m_marks.set(row);
}

void Competitor_Rules::Insert_Row(Save_Work &w, int gridRow)
{
    Insert_New_Competitor(w.conn, m_comp, w.cells.row(gridRow));
    m_marks.clear(gridRow);
}

bool Competitor_Rules::Row_Needs_Write(int gridRow) const
{
    return m_marks.isSet(gridRow);
}

std::optional<Cell_Refusal> Competitor_Rules::Write_Row(Save_Work &w, int record, int gridRow)
{
    // Cleared once written: a row whose write failed is written at the next save.
    Write_Edited_Competitor(w.conn, m_comp, w.rs, record, w.cells.row(gridRow));
    m_marks.clear(gridRow);
    return std::nullopt;
}

void Competitor_Rules::Delete_Dependents(Connection &conn, const QStringList &row)
{
    ::Delete_Dependents(conn, m_comp, row.value(1));
}
