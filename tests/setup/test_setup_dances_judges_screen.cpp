#include "screen_driver.h"
#include "setup_fill.h"
#include "setup/frmJudges.h"
#include "setup/frmdances.h"
#include "support/test_env.h"

#include "core/dialogs.h"
#include "core/globals.h"

#include <QPushButton>

using Fixture::Count;

class TestDancesJudgesScreens : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void dances_add_rename_and_require_a_name();
    void standard_dances_are_never_deleted();
    void dance_delete_cascade();
    void judges_add_and_require_both_names();
    void judge_delete_and_its_captions();

private:
    template <class S> S *open()
    {
        auto *s = new S;
        m_screen.reset(s);
        Driver(s).show();
        return s;
    }
    std::unique_ptr<TestDataFolder> m_env;
    std::unique_ptr<Connection> m_conn;
    std::unique_ptr<GridScreen> m_screen;
};

void TestDancesJudgesScreens::init()
{
    m_env = std::make_unique<TestDataFolder>();
    m_conn = std::make_unique<Connection>();
    m_conn->open();
}

void TestDancesJudgesScreens::cleanup()
{
    if (m_screen) {
        m_screen->Set_Dirty(false);
        m_screen->close();
    }
    m_screen.reset();
    m_conn.reset();
    m_env.reset();
}

void TestDancesJudgesScreens::dances_add_rename_and_require_a_name()
{
    auto *f = open<frmdances>();
    Driver d(f);
    QCOMPARE(f->windowTitle(), QString("Strathmark 2017 - Dances"));
    QCOMPARE(f->Cell(0, 1), QString("Dance Name"));
    QCOMPARE(f->Row_Count(), 18);
    QCOMPARE(f->Cell(17, 1), QString("Special Fling"));

    d.enter(3, 1, "");
    QVERIFY(f->Editor_Open());
    QCOMPARE(Dialogs::lastRecord().text,
             QString("All fields are required! If you wish to delete this record, enter a value first"));
    QCOMPARE(Dialogs::lastRecord().title, QString("Validation Error"));
    d.press(Qt::Key_Escape);

    // A rename reaches every competition; new names are quoted.
    d.enter(1, 1, "Highland Fling");
    f->CmdAdd->click();
    QCOMPARE(f->Cell(18, 0), QString("0"));
    d.type("Flora's Jig");
    d.press(Qt::Key_Return);  // the last row is full: a further row opens
    QCOMPARE(f->Row_Count(), 20);
    d.press(Qt::Key_Escape);
    d.enter(19, 1, "Strathspey");
    f->CmdSave->click();
    QCOMPARE(Dialogs::lastRecord().text, QString("Changes Saved!"));
    QCOMPARE(m_conn->scalar("SELECT dance FROM dances WHERE dance_id = 1").toString(), QString("Highland Fling"));
    QCOMPARE(m_conn->scalar("SELECT dance_id FROM dances WHERE dance = 'Flora''s Jig'").toInt(), 18);
    QCOMPARE(m_conn->scalar("SELECT dance_id FROM dances WHERE dance = 'Strathspey'").toInt(), 19);
    QCOMPARE(f->Cell(18, 0), QString("18"));
}

void TestDancesJudgesScreens::standard_dances_are_never_deleted()
{
    const short comp = Fixture::Competition(*m_conn);
    Fill_Event_Rows(*m_conn, comp, "1A", 17);
    Fill_Event_Rows(*m_conn, comp, "1A", 1);
    auto *f = open<frmdances>();
    Driver d(f);
    for (int row : {1, 17}) {
        d.go(row, 1);
        f->cmdDel->click();
    }
    // Not even a question.
    QVERIFY(Dialogs::records().isEmpty());
    QCOMPARE(f->Row_Count(), 18);
    QCOMPARE(Count(*m_conn, "dances"), 17);
    QCOMPARE(Count(*m_conn, "overall_dance_results"), 2);
    QCOMPARE(Count(*m_conn, "category_dances", "dance_id = 1"), 3);
}

void TestDancesJudgesScreens::dance_delete_cascade()
{
    m_conn->execute("INSERT INTO dances(dance) VALUES('Strathspey')");
    const short a = Fixture::Competition(*m_conn);
    const short b = Fixture::Competition(*m_conn, "Other", "x");
    for (short k : {a, b}) {
        Fixture::Category_Dances(*m_conn, k, "PS", {18, 1});
        Fill_Event_Rows(*m_conn, k, "1A", 18);
        Fill_Event_Rows(*m_conn, k, "1A", 1);
    }
    const QStringList danceTables = {"dance_results", "judges_results", "judges_results_judges",
                                     "overall_dance_results", "comp_judges_results", "dance_no_prizes",
                                     "dance_no_dancers"};
    QMap<QString, int> before;
    for (const QString &t : danceTables)
        before[t] = Count(*m_conn, t, "dance_id = 18");
    auto *f = open<frmdances>();
    Driver d(f);
    d.go(18, 1);
    Dialogs::queueAnswer(vbNo);
    f->cmdDel->click();
    QCOMPARE(Dialogs::lastRecord().text, QString("Are you sure you want to delete Dance? \nIt will also delete all associated results."));
    QCOMPARE(Dialogs::lastRecord().title, QString("Deletion Confirmation"));
    QCOMPARE(Count(*m_conn, "category_dances", "dance_id = 18"), 2);

    d.go(18, 1);
    f->cmdDel->click();
    for (const char *t : {"dance_results", "judges_results", "judges_results_judges", "overall_dance_results"}) {
        QVERIFY2(before[t] == 2, t);
        QVERIFY2(Count(*m_conn, t, "dance_id = 18") == 0, t);
        QVERIFY2(Count(*m_conn, t, "dance_id = 1") == before[t], t);
    }
    QCOMPARE(Count(*m_conn, "category_dances", "dance_id = 18"), 0);
    QCOMPARE(Count(*m_conn, "category_dances", "dance_id = 1"), 2 * 4);
    // The single judge's marks and the per-dance rows stay.
    for (const char *t : {"comp_judges_results", "dance_no_prizes", "dance_no_dancers"})
        QVERIFY2(Count(*m_conn, t, "dance_id = 18") == before[t], t);
    QCOMPARE(Count(*m_conn, "dances"), 17);
    QCOMPARE(f->Row_Count(), 18);
    QCOMPARE(f->Cell(0, 1), QString("Dance Name"));
}

void TestDancesJudgesScreens::judges_add_and_require_both_names()
{
    Current_Competition_Id = Fixture::Competition(*m_conn);
    const short other = Fixture::Competition(*m_conn, "Other", "x");
    Fixture::Judge(*m_conn, other, "Not", "Here");
    auto *f = open<frmJudges>();
    Driver d(f);
    QCOMPARE(f->windowTitle(), QString("Strathmark 2017 - Judges"));
    QCOMPARE(f->Row_Cells(0), QStringList({"Judge_id", "Firstname", "Surname"}));
    QCOMPARE(f->Row_Count(), 2);
    QCOMPARE(f->Cell(1, 1), QString());

    d.enter(1, 1, "Mary");
    // Only a first name: Enter on the last row keeps the cursor on that row.
    d.go(1, 2);
    d.press(Qt::Key_Return);
    QCOMPARE(f->Row_Count(), 2);
    QCOMPARE(f->Current_Col(), 1);
    d.enter(1, 2, "");
    QCOMPARE(Dialogs::lastRecord().text,
             QString("All fields are required! If you wish to delete this record, enter a value first"));
    QCOMPARE(Dialogs::lastRecord().title, QString("Validation Error"));
    d.type("O'Hara");
    d.press(Qt::Key_Return);
    QCOMPARE(f->Row_Count(), 3);
    QCOMPARE(f->Cell(2, 0), QString::number(Current_Competition_Id));
    d.type("John");
    d.press(Qt::Key_Tab);
    d.type("Smith");
    d.press(Qt::Key_Tab);
    f->CmdSave->click();
    QCOMPARE(Count(*m_conn, "judges", QString("competition_id = %1").arg(Current_Competition_Id)), 2);
    QCOMPARE(Count(*m_conn, "judges", "surname = 'O''Hara' AND forename = 'Mary'"), 1);
    QCOMPARE(f->Cell(1, 0), m_conn->scalar("SELECT judge_id FROM judges WHERE forename = 'Mary'").toString());

    // A saved row takes its apostrophe through the record set unaltered.
    d.enter(d.rowOf(1, "John"), 2, "O'Neil");
    f->CmdSave->click();
    QCOMPARE(Count(*m_conn, "judges", "surname = 'O''Neil' AND forename = 'John'"), 1);
    QCOMPARE(Count(*m_conn, "judges"), 3);
}

void TestDancesJudgesScreens::judge_delete_and_its_captions()
{
    const short comp = Fixture::Competition(*m_conn);
    Current_Competition_Id = comp;
    const int mary = Fixture::Judge(*m_conn, comp, "Mary", "Grant");
    const int john = Fixture::Judge(*m_conn, comp, "John", "Smith");
    Fill_Event_Rows(*m_conn, comp, "1A", 1, mary);
    Fill_Event_Rows(*m_conn, comp, "1A", 2, john);
    auto *f = open<frmJudges>();
    Driver d(f);

    d.go(d.rowOf(1, "Mary"), 1);
    Dialogs::queueAnswer(vbNo);
    f->cmdDel->click();
    QCOMPARE(Dialogs::lastRecord().text, QString("Are you sure you want to delete Judge? \nIt will also delete judge from any results."));
    // Even a No leaves the captions in lower case.
    QCOMPARE(f->Row_Cells(0), QStringList({"Judge_id", "forename", "surname"}));
    QCOMPARE(Count(*m_conn, "judges"), 2);

    d.go(d.rowOf(1, "Mary"), 1);
    f->cmdDel->click();
    QCOMPARE(Count(*m_conn, "judges"), 1);
    QCOMPARE(Count(*m_conn, "judges_results_judges", QString("judge_id = %1").arg(mary)), 0);
    QCOMPARE(Count(*m_conn, "judges_results_judges", QString("judge_id = %1").arg(john)), 1);
    QCOMPARE(Count(*m_conn, "judges_results"), 2);
    QCOMPARE(f->Row_Count(), 2);

    d.go(1, 1);
    f->cmdDel->click();
    QCOMPARE(Count(*m_conn, "judges"), 0);
    QCOMPARE(Count(*m_conn, "judges_results"), 2);
    QCOMPARE(f->Row_Cells(0), QStringList({"Judge_id", "forename", "surname"}));
    QCOMPARE(f->Cell(1, 1), QString());
    QVERIFY(!f->Dirty());
}

QTEST_MAIN(TestDancesJudgesScreens)
#include "test_setup_dances_judges_screen.moc"
