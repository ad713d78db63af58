// The competitors screen driven by keys and clicks.
#include "entries/competitor_columns.h"
#include "entries/frmCompetitors.h"
#include "core/dialogs.h"
#include "core/globals.h"
#include "support/fixtures.h"
#include "support/screen_script.h"
#include "support/test_env.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

using namespace Competitor_Col;

class TestScreen : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void typed_data();
    void typed();
    void search_filters_and_keeps_the_statement();
    void registered_all_keeps_the_earlier_filter_until_reopened();
    void delete_removes_record_and_results();
    void an_edit_past_row_1500_gets_the_handler_box();

private:
    void run(const QString &script);
    QList<int> shownNumbers() const;
    void search(const std::function<void()> &fill);

    std::unique_ptr<TestDataFolder> m_env;
    std::unique_ptr<frmCompetitors> m_screen;
    Connection m_conn;
    short m_comp = 0;
};

void TestScreen::init()
{
    m_env = std::make_unique<TestDataFolder>();
    m_conn.open();
    m_comp = Fixture::Competition(m_conn);
    Fixture::Event(m_conn, m_comp, "A1", "Under 8", "H");
    Fixture::Event(m_conn, m_comp, "B2", "Under 10", "H");
    Fixture::Event(m_conn, m_comp, "CH", "Open", "C");
    // Shown highest number first: row 1 is dancer 3, row 3 dancer 1.
    Fixture::Competitor(m_conn, m_comp, 1, "Amy", "Watt", {"A1"});
    Fixture::Competitor(m_conn, m_comp, 2, "Beth", "Abel", {"A1", "CH"});
    Fixture::Competitor(m_conn, m_comp, 3, "Cara", "Mair", {"CH"});
    m_conn.execute("UPDATE competitors SET age = competitor_id + 6, registered = competitor_id % 2");
    Current_Competition_Id = m_comp;
    m_screen = std::make_unique<frmCompetitors>();
}

void TestScreen::cleanup()
{
    m_screen->Set_Dirty(false);
    m_screen->close();
    m_screen.reset();
    m_conn.close();
    m_env.reset();
}

void TestScreen::run(const QString &script)
{
    Run_Script(m_screen.get(), m_conn, script);
}

QList<int> TestScreen::shownNumbers() const
{
    QList<int> out;
    for (int r = 1; r < m_screen->Row_Count(); ++r)
        if (!m_screen->Cell(r, Number).isEmpty())
            out << m_screen->Cell(r, Number).toInt();
    return out;
}

void TestScreen::search(const std::function<void()> &fill)
{
    run("!CmdViewSearch");
    QVERIFY(m_screen->FrameSearch->isVisible());
    fill();
    run("!CmdSearch");
}

void TestScreen::typed_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("expect");
    const QString invalid = "Invalid Number! Re-enter or Hit <Escape> to exit";
    auto dancer = [](int n, const char *field) {
        return QString("sql SELECT ifnull(%1, 'NULL') FROM competitors WHERE competitor_id IS %2=").arg(field).arg(n);
    };
    auto events = [](int n) {
        return QString("sql SELECT group_concat(group_id) FROM (SELECT group_id FROM competitor_groups WHERE "
                       "competitor_id IS %1 ORDER BY rowid)=").arg(n);
    };
    for (const QStringList &c : {QStringList{"12.5", "Invalid number!", "Invalid Data"},
                                 {"+12", "Invalid number!", "Invalid Data"}, {"twelve", invalid, "Data Error"},
                                 {"40000", invalid, "Data Error"}})
        QTest::addRow("number %s", qPrintable(c[0])) << QString("@1,1|>{Del}%1\t").arg(c[0])
            << QString("nboxes=1;box=%1;title=%2;focus=editor").arg(c[1], c[2]);
    QTest::newRow("number empty") << "@1,1|>{Del}\t"
        << "box=Number is required! If you wish to delete this record, enter a value 0 into the field!;title=Missing Data;focus=editor";
    QTest::newRow("number 0 passes, the row stays") << "@1,1|>{Del}0\t|!CmdSave" << dancer(0, "forename") + "CARA";
    QTest::newRow("forename empty") << "@2,2|>{Del}\t" << "title=Missing Data;focus=editor";
    QTest::newRow("age below 0") << "@2,4|>{Del}-4\t" << "box=Value must be positive!;focus=editor";
    QTest::newRow("event not of the competition") << "@2,19|>{Del}ZZ\t" << "box=Invalid event! Use 'F2' for list;title=Invalid Data";
    QTest::newRow("postcode in capitals, fee with a fraction") << "@2,8|>{Del}ab1 2cd\t|@2,9|>{Del}12.5\t"
        << "boxes=;cell 2,8=AB1 2CD;cell 2,9=12.5";
    QTest::newRow("F2 below column 8: the plain editor") << "@3,2|>{F2}" << "editor=Amy;shown FrameAG=0";
    QTest::newRow("F2 from column 8 on lists the events") << "@3,11|>{F2}" << "shown FrameAG=1";
    QTest::newRow("F2, the event chosen, lands in the cell") << "@3,18|>{F2}|!LstAG: Under 10|>\t|!CmdSave"
        << events(1) + "A1,B2;" + dancer(1, "group_id2") + "B2;box=Changes Saved!";
    QTest::newRow("F2 marks the row even without a choice") << "@2,20|>{F2}|!CmdGroupCancel|!CmdSave"
        << "shown FrameAG=0;" + dancer(2, "surname") + "ABEL;" + dancer(1, "surname") + "Watt";
    QTest::newRow("an emptied event cell leaves the events") << "@2,17|>{Del}|>\n|!CmdSave"
        << events(2) + "CH;" + dancer(2, "group_id1") + "NULL";
    QTest::newRow("a new row typed and saved") << "!CmdAdd|>7\t|>Mhairi\t|>O'Brien\t|@4,17|>a1\t|!CmdSave"
        << dancer(7, "surname") + "O'Brien;" + events(7) + "A1;cell 1,1=7;dirty=0";
    QTest::newRow("a cut is lost at the refresh after a save") << "@3,3|>{Ctrl+X}|@1,12|>{Del}paid\t|!CmdSave"
        << "cell 3,3=Watt;" + dancer(1, "surname") + "Watt;" + dancer(3, "notes") + "paid";
    QTest::newRow("a broken search keeps the grid usable") << "!CmdViewSearch|!SearchNo|>abc|!CmdSearch|@3,12|>{Del}still\t|!CmdSave"
        << "cell 1,1=3;" + dancer(1, "notes") + "still";
}

void TestScreen::typed()
{
    QFETCH(QString, script);
    run(script);
    QFETCH(QString, expect);
    Check_State(m_screen.get(), m_conn, expect);
}

void TestScreen::search_filters_and_keeps_the_statement()
{
    search([&] {
        QCOMPARE(QApplication::focusWidget(), m_screen->SearchNo);
        m_screen->SearchAgeFrom->setText("8");   // From alone: that age only
    });
    QVERIFY(!m_screen->FrameSearch->isVisible());
    QCOMPARE(shownNumbers(), QList<int>({2}));
    search([&] { m_screen->SearchAgeTo->setText("8"); });   // To alone: every age
    QCOMPARE(shownNumbers(), QList<int>({3, 2, 1}));
    search([&] {
        m_screen->SearchOrder->setCurrentIndex(4);   // Surname!
        m_screen->SearchOrder->activated(4);
    });
    QCOMPARE(shownNumbers(), QList<int>({2, 3, 1}));
    search([&] {
        m_screen->Combo1->setCurrentIndex(0);
        m_screen->Combo1->activated(0);   // " Open" sorts first: CH
        m_screen->SearchForename->setText("ar");
    });
    QCOMPARE(shownNumbers(), QList<int>({3}));
    // A save refreshes with the search.
    run("@1,12|>{Del}found\t|!CmdSave");
    QCOMPARE(shownNumbers(), QList<int>({3}));
    QCOMPARE(m_conn.scalar("SELECT notes FROM competitors WHERE competitor_id = 3").toString(), QString("found"));
    search([&] { m_screen->SearchTeacher->setText("x"); });
    QCOMPARE(shownNumbers(), QList<int>());
    run("!CmdViewSearch|!CmdCancelSearch");
    QVERIFY(!m_screen->FrameSearch->isVisible());
}

void TestScreen::registered_all_keeps_the_earlier_filter_until_reopened()
{
    auto choose = [&](const QString &text) {
        const int i = m_screen->Search_Registered->findText(text);
        m_screen->Search_Registered->setCurrentIndex(i);
        m_screen->Search_Registered->activated(i);
    };
    search([&] {
        choose("Registered");
        choose("All");
    });
    QCOMPARE(shownNumbers(), QList<int>({3, 1}));
    search([&] { choose("Not Registered"); });
    QCOMPARE(shownNumbers(), QList<int>());
    search([&] { choose("No Card!"); });
    QCOMPARE(shownNumbers(), QList<int>({2}));
    search([] {});   // opened anew: the filter is gone
    QCOMPARE(shownNumbers(), QList<int>({3, 2, 1}));
}

void TestScreen::delete_removes_record_and_results()
{
    for (const char *t : {"dance_results", "highland_results", "judges_results", "overall_dance_results", "tie_break",
                          "comp_judges_results", "overall_results", "national_results"})
        m_conn.execute(QString("INSERT INTO %1(competition_id, group_id, competitor_id) VALUES (?, 'CH', 2)").arg(t),
                       {m_comp});
    m_screen->MSFlexGrid1->setItem(0, 3, new QTableWidgetItem("x"));   // captions come back after every click
    run("@2,3|?7|!cmdDel");
    QCOMPARE(Dialogs::lastRecord().text,
             QString("Are you sure you want to delete entry? \nIt will also delete entry from any results."));
    QCOMPARE(Dialogs::lastRecord().title, QString("Deletion Confirmation"));
    QCOMPARE(m_screen->Cell(0, 3), QString("Surname"));
    QCOMPARE(Fixture::Count(m_conn, "competitors"), 3);

    run("@2,3|?6|!cmdDel");
    QCOMPARE(shownNumbers(), QList<int>({3, 1}));
    QCOMPARE(Fixture::Count(m_conn, "competitors", "competitor_id = 2"), 0);
    QCOMPARE(Fixture::Count(m_conn, "competitor_groups", "competitor_id = 2"), 0);
    QCOMPARE(Fixture::Count(m_conn, "highland_results"), 0);
    QCOMPARE(Fixture::Count(m_conn, "tie_break"), 0);
    QCOMPARE(Fixture::Count(m_conn, "comp_judges_results"), 1);   // the mark screen reconciles these
    QCOMPARE(Fixture::Count(m_conn, "overall_results"), 1);
}

void TestScreen::an_edit_past_row_1500_gets_the_handler_box()
{
    {
        Transaction t(m_conn);
        for (int n = 4; n <= 1501; ++n)
            m_conn.execute("INSERT INTO competitors(competition_id, competitor_id, forename, surname) VALUES (?,?,'A','B')",
                           {m_comp, n});
    }
    m_screen = std::make_unique<frmCompetitors>();
    run("@1500,12|>{Del}fits\t");
    QVERIFY(!m_screen->Editor_Open());
    run("@1501,12|>{Del}no room\t");
    QCOMPARE(Dialogs::lastRecord().text, QString("Invalid Number! Re-enter or Hit <Escape> to exit"));
    QCOMPARE(Dialogs::lastRecord().title, QString("Data Error"));
    QVERIFY(m_screen->Editor_Open());
    run(">\x1b|!CmdSave");
    QCOMPARE(Dialogs::lastRecord().text, QString("Changes Saved!"));
    QCOMPARE(m_conn.scalar("SELECT notes FROM competitors WHERE competitor_id = 2").toString(), QString("fits"));
}

QTEST_MAIN(TestScreen)
#include "test_screen.moc"
