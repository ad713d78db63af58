#pragma once
// A small screen built from the grid editor for the tests: competitions with
// name, date and organiser.
#include "core/db.h"
#include "core/errors.h"
#include "ui/grid/grid_screen.h"

class SampleRules : public GridRules
{
public:
    SampleRules()
    {
        table = QStringLiteral("competitions");
        widths = {0, 2500, 1500, 2000};
        required = {1, 2};
        texts.failureLine = QStringLiteral("There was an error updating record: ");
        texts.hintLine = QStringLiteral(" Ensure all fields are populated!");
        texts.hintJoined = true;
        texts.deleteQuestion = QStringLiteral("Are you sure you want to delete Competition? \nIt will also delete its events.");
    }
    QString Select_Sql() const override
    {
        return QStringLiteral("SELECT competition_id, competition_name, competition_date, competition_organiser "
                              "FROM competitions ORDER BY competition_id");
    }
    QList<QStringList> Captions(bool afterSave) const override
    {
        return {{QString(), QStringLiteral("Name"), QStringLiteral("Date"),
                 afterSave ? QStringLiteral("Org") : QStringLiteral("Organiser")}};
    }
    QString New_Row_Filler() const override { return QStringLiteral("0"); }
    std::optional<Cell_Refusal> Check_Cell(int, int col, QString &text) override
    {
        if ((col == 1 || col == 2) && text.isEmpty())
            return Cell_Refusal{QStringLiteral("Name and date are required!")};
        if (col == 3 && text == QLatin1String("boom"))
            throw AppError(QStringLiteral("Type mismatch"));
        return std::nullopt;
    }
    // Built by concatenation, unescaped: a quote breaks the statement.
    void Insert_Row(Save_Work &w, int row) override
    {
        const QStringList c = w.cells.row(row);
        w.conn.execute(QStringLiteral("INSERT INTO competitions(competition_name, competition_date, competition_organiser) VALUES ('")
                       + c.at(1) + QStringLiteral("','") + c.at(2) + QStringLiteral("','") + c.at(3) + QStringLiteral("')"));
    }
    std::optional<Cell_Refusal> Check_At_Save(int col, const QString &text) const override
    {
        if (col == 3 && text == QLatin1String("BAD"))
            return Cell_Refusal{QStringLiteral("Bad organiser!")};
        return std::nullopt;
    }
    void Delete_Dependents(Connection &conn, const QStringList &row) override
    {
        if (row.at(0).isEmpty() || row.at(0) == QLatin1String("0"))
            return;
        conn.execute(QStringLiteral("DELETE FROM age_groups WHERE competition_id = ") + row.at(0));
    }
};

class frmSample : public GridScreen
{
public:
    frmSample() : GridScreen(QStringLiteral("frmSample"), QStringLiteral("Sample"), std::make_unique<SampleRules>())
    {
        Load_Grid();
    }
};

// The same table under two caption rows, with defaults in new rows, and a
// check before the save that refuses two equal dates.
class TwoRowRules : public SampleRules
{
public:
    TwoRowRules()
    {
        fixedRows = 2;
        texts.hintLine = QStringLiteral("Please ensure that the dates are unique!'");
        texts.hintJoined = false;
        texts.fixLine = QStringLiteral("Please fix this record and save again, otherwise you may lose some data!");
    }
    QList<QStringList> Captions(bool) const override
    {
        return {{QString(), QStringLiteral("Competition"), QStringLiteral("Date"), QStringLiteral("Run")},
                {QString(), QStringLiteral("Name"), QString(), QStringLiteral("By")}};
    }
    QList<QPair<int, QString>> First_Row_Defaults() const override { return {{3, QStringLiteral("SOBHD")}}; }
    QList<QPair<int, QString>> New_Row_Defaults() const override { return {{2, QStringLiteral("TBC")}, {3, QStringLiteral("SOBHD")}}; }
    std::optional<Cell_Refusal> Pre_Save_Check(const Grid_Cells &cells) override
    {
        QStringList dates;
        for (int r = fixedRows; r < cells.rows(); ++r)
            dates << cells.text(r, 2);
        if (dates.removeDuplicates() > 0)
            return Cell_Refusal{QStringLiteral("Duplicate date!")};
        return std::nullopt;
    }
};

class frmTwoRows : public GridScreen
{
public:
    frmTwoRows() : GridScreen(QStringLiteral("frmTwoRows"), QStringLiteral("Two rows"), std::make_unique<TwoRowRules>())
    {
        Load_Grid();
    }
};
