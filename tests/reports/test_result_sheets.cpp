// The sheets filled from a day's results: the event report, the call-back
// sheet, the line-up sheet and the teachers' trophy, read back from the PDF.
#include "pdf_text.h"
#include "support/fixtures.h"
#include "support/test_env.h"
#include "core/dialogs.h"
#include "core/globals.h"
#include "reports/FrmReports.h"
#include "reports/lineup_sheet.h"
#include "reports/report.h"
#include "reports/teachers_report.h"
#include "tally/competition/dance_tally.h"
#include "tally/competition/overall_tally.h"
#include "tally/competition/screen/FrmTallyComp.h"
#include "tally/competition/screen/result_sheets.h"
#include "ui/grid/flex_grid.h"

#include <QApplication>
#include <QListWidget>
#include <QPrintPreviewDialog>
#include <QPrinterInfo>
#include <QPushButton>
#include <QtTest>

namespace {

const QStringList Names = QString("Isla Grant|Eilidh MacLeod|Kirsty Fraser|Ailsa O'Neill|Morven Ross|Catriona Bell|"
    "Mhairi-Anne Featherstonehaugh-Cholmondeley|Skye Munro|Rhona Hay|Fiona Reid|Iona Black|Shona Young|Lorna Kerr|"
    "Jenna Watt|Holly Baird|Erin Shaw|Orla Duff|Megan Rae|Freya Scott|Beth Gunn|Zara Mair|Ruby Paton").split('|');

QString Sheet_Text(const Report &report, const QString &file)
{
    report.Render_Pdf(file);
    return Pdf_Pages(file).join('\n');
}

} // namespace

class TestResultSheets : public QObject
{
    Q_OBJECT
    TestDataFolder env;
    Connection conn;
    short comp = 0, teachersComp = 0;

    void Marks(const QString &code, short dance, short prizes, const QList<QPair<int, double>> &marks)
    {
        for (const auto &m : marks)
            conn.execute("INSERT INTO comp_judges_results(competition_id, group_id, dance_id, competitor_id, "
                         "points_awarded1) VALUES(?,?,?,?,?)", {comp, code, dance, m.first, m.second});
        Current_Group_Id = code;
        Current_Dance_Id = dance;
        Recalc_Dance(conn, prizes);
    }

private slots:
    void initTestCase()
    {
        conn.open();
        comp = Fixture::Competition(conn, "Cowal Gathering", "29/08/2026");
        Current_Competition_Id = comp;
        Current_Competition_Name = "Cowal Gathering";
        Fixture::Event(conn, comp, "E1", "Under 12", "H");
        Fixture::Event(conn, comp, "E2", "Under 14", "N", 6, "Y");
        Fixture::Event(conn, comp, "E3", "Open", "X");
        Fixture::Event(conn, comp, "E5", "Under 6", "H");
        conn.execute("UPDATE age_groups SET championship_title = 'Highland' WHERE competition_group_id = 'E1'");
        Fixture::Category_Dances(conn, comp, "N", {1, 2, 9, 10});
        Fixture::Category_Dances(conn, comp, "X", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11});
        for (int i = 1; i <= 22; ++i)
            Fixture::Competitor(conn, comp, i, Names[i - 1].section(' ', 0, 0), Names[i - 1].section(' ', 1), {"E1"});
        conn.execute("UPDATE competitors SET town = iif(competitor_id = 7, 'Auchtermuchty', 'Town' || competitor_id), "
                     "registered = CASE competitor_id WHEN 1 THEN 1 WHEN 2 THEN 0 END, "
                     "notes = iif(competitor_id = 3, 'Late entry', NULL)");
        conn.execute("INSERT INTO competitor_groups(competition_id, competitor_id, group_id) VALUES(?, 12, 'E1')", {comp});
        QList<QPair<int, double>> fling;  // 7 wins, 3 and 4 tie
        for (int i = 1; i <= 16; ++i)
            fling.append({i, i == 7 ? 95.0 : 89 - 0.5 * (i == 4 ? 3 : i)});
        Marks("E1", 1, 16, fling);
        Marks("E1", 3, 7, {{7, 99}, {17, 80}, {18, 81}, {19, 82}, {20, 83}, {21, 84}, {22, 85}});
        Marks("E1", 4, 6, {{1, 88}, {2, 88}, {7, 70}});
        Recalc_Overall(conn, Read_Overall_Settings(conn));
        for (short d : {1, 2, 9, 10})
            Marks("E2", d, 6, {{1, 80.0 + d}, {2, 90.0 - d}, {3, 75}});
        Recalc_Overall(conn, Read_Overall_Settings(conn));
        for (short d = 1; d <= 11; ++d)
            Marks("E3", d, 6, {{5, 90}, {6, 80}});
        // Teachers: the tenth and eleventh tie; a flagged dance and a dancer
        // with no teacher count nothing.
        teachersComp = Fixture::Competition(conn, "Teachers Day");
        const QStringList teachers = QString("Mrs O'Neill=137|Mrs O'Neil=91|Miss Ross=71|Mr Hay=53|Mrs Kerr=37|Miss "
            "Bell=23|Mr Watt=20|Mrs Rae=15|Miss Duff=10|Mrs Shaw=5|Mr Gunn=5|Mr Last=1|=200").split('|');
        for (int i = 1; i <= teachers.size(); ++i) {
            const QString teacher = teachers[i - 1].section('=', 0, 0);
            Fixture::Competitor(conn, teachersComp, i, "Dancer", QString::number(i), {"T1"});
            conn.execute("UPDATE competitors SET teacher = ? WHERE competition_id = ? AND competitor_id = ?",
                         {teacher.isEmpty() ? QVariant() : teacher, teachersComp, i});
            conn.execute("INSERT INTO overall_dance_results(competition_id, group_id, dance_id, competitor_id, points) "
                         "VALUES(?, 'T1', 1, ?, ?)", {teachersComp, i, teachers[i - 1].section('=', 1).toInt()});
        }
        conn.execute("INSERT INTO overall_dance_results(competition_id, group_id, dance_id, competitor_id, points) "
                     "VALUES(?, 'T1', 2, 1, 500)", {teachersComp});
        conn.execute("INSERT INTO dance_no_dancers(competition_id, group_id, dance_id) VALUES(?, 'T1', 2)", {teachersComp});
    }

    // Texts that must stand in this order, and texts that must not appear.
    void sheets_data()
    {
        for (const char *c : {"sheet", "event", "inOrder", "absent"})
            QTest::addColumn<QString>(c);
        QTest::addColumn<bool>("locale");
        QTest::newRow("event, Win") << "DataReport3" << "E1" << "Cowal Gathering|Under 12|29/08/2026|Dance Results|"
            "Fling Seann Truibhas|Win 7 Mhairi-Anne Featherstonehaugh-Cholmond|3RU = 3 Kirsty Fraser, Town3|Reel|"
            "Win = 1 Isla Grant, Town1|Overall Results Cowal Gathering Under 12|Overall Winner Pts|Win 7 Mhairi-Anne "
            "Featherstonehaugh-Chol 345|Callbacks: 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20\n21 22|Printed: "
            << "Swords|Cholmonde|Highland Winner" << true;
        QTest::newRow("event, digits") << "DataReport3" << "E1" << "1 7 Mhairi-Anne Featherstonehaugh-Cholmondel|"
            "4 = 4 Ailsa O'Neill|1 = 2 Eilidh MacLeod|1 7 Mhairi-Anne Featherstonehaugh-Cholmo 345" << "Win |Cholmondeley" << false;
        QTest::newRow("split event") << "DataReport3" << "E2" << "Fling Swords|Scottish Lilt Highland Laddie|"
            "Overall Winner Pts Highland Winner Pts|National Winner Pts" << "" << true;
        QTest::newRow("eleven dances") << "DataReport3" << "E3" << "Fling Swords|Highland Laddie|Callbacks: 5 6"
            << "Irish Jig" << true;
        QTest::newRow("call-backs") << "DataReport6" << "E1" << "Cowal Gathering|Under 12|Call-Back Sheet|29/08/2026|"
            "Num Name Town|1 Isla Grant Town1|4 Ailsa O'Neill Town4|7 Mhairi-Anne|Auchtermuchty|22 Ruby Paton Town22|"
            "Printed: |from $HOST" << "" << true;
        QTest::newRow("line-up") << "DataReport5" << "E1" << "Under 12 Highland|Line-up Sheet|Num Name Town Notes "
            "Register|1 Isla Grant Town1 Reg|2 Eilidh MacLeod Town2 No Card|3 Kirsty Fraser Town3 Late entry|"
            "4 Ailsa O'Neill Town4\n|11 Iona Black Town11\n12 Shona Young Town12\n13 Lorna Kerr|Page 1 of 1"
            << "Town12\n12 " << true;
        QTest::newRow("empty line-up") << "DataReport5" << "E5" << "Line-up Sheet|Num Name Town Notes Register|"
            "Page 1 of 1" << "Town1" << true;
        QTest::newRow("teachers") << "DataReport9" << "" << "Teachers Trophy Report|Mrs O'Neill - 137\nMrs O'Neil - 91"
            "\nMiss Ross - 71|Miss Duff - 10|Mr Gunn - 5" << "Mr Last|637|200|Printed" << true;
    }

    void sheets()
    {
        QFETCH(QString, sheet);
        QFETCH(QString, event);
        QFETCH(bool, locale);
        QFETCH(QString, inOrder);
        QFETCH(QString, absent);
        Opt_Locale = locale;
        Current_Competition_Id = sheet == "DataReport9" ? teachersComp : comp;
        Current_Group_Id = event;
        auto report = Report::Load(sheet);
        if (sheet == "DataReport3")
            Fill_Event_Report(conn, *report, "Under 12", event == "E2" ? "Y" : "N");
        else if (sheet == "DataReport6")
            Fill_Callback_Report(conn, *report, "Under 12");
        else if (sheet == "DataReport5")
            Fill_Lineup_Sheet(conn, *report, comp, event, "Under 12 Highland");
        else
            Fill_Teachers_Report(conn, *report);
        const QString text = Sheet_Text(*report, env.file(sheet + event + ".pdf"));
        QVERIFY2(In_Order(text, inOrder.replace("$HOST", QSysInfo::machineHostName()).split('|')), qPrintable(text));
        for (const QString &a : absent.split('|', Qt::SkipEmptyParts))
            QVERIFY2(!text.contains(a), qPrintable(a + "\n" + text));
        Opt_Locale = true;
    }

    // 150 dancers: several pages, each under its headings, nobody lost.
    void long_lineup()
    {
        const short big = Fixture::Competition(conn, "Big Day");
        Fixture::Event(conn, big, "B1", "Open", "H");
        for (int i = 1; i <= 150; ++i)
            Fixture::Competitor(conn, big, i, "Dancer", QString("Number%1").arg(i), {"B1"});
        auto report = Report::Load("DataReport5");
        Current_Competition_Name = "Big Day";
        Fill_Lineup_Sheet(conn, *report, big, "B1", "Open");
        Current_Competition_Name = "Cowal Gathering";
        QVERIFY(report->Render_Pdf(env.file("big.pdf")) >= 3);
        const QList<int> seen = Count_Rows(env.file("big.pdf"), {"Big Day", "Open", "Line-up Sheet",
                                           "Num Name Town Notes Register"}, "^(\\d+) Dancer Number(\\d+)$", 150);
        QCOMPARE(seen.count(1), 150);
    }

    // The screens: the mark screen's four buttons and the line-up list.
    void screens()
    {
        Current_Competition_Id = comp;
        FrmTallyComp screen;
        screen.show();
        auto *events = screen.findChild<QListWidget *>("LstGroup");
        events->setCurrentItem(events->findItems("Under 12", Qt::MatchExactly).first());
        QCOMPARE(screen.findChild<FlexGrid *>("GrdOR")->item(1, 1)->text(), QString("1"));
        auto previews = [] {
            QStringList names;
            for (QWidget *w : QApplication::topLevelWidgets())
                if (qobject_cast<QPrintPreviewDialog *>(w) && w->isVisible())
                    names << w->objectName();
            return names.sort(), names;
        };
        screen.findChild<QPushButton *>("CmdRpt")->click();
        screen.findChild<QPushButton *>("cmdCallback")->click();
        QCOMPARE(previews(), QStringList({"DataReport3", "DataReport6"}));
        if (QPrinterInfo::defaultPrinter().isNull()) {
            Dialogs::queueAnswer(vbNo);
            screen.findChild<QPushButton *>("CmdPRRpt")->click();
            QVERIFY(Dialogs::lastRecord().text.startsWith("No printer is installed."));
            Dialogs::queueAnswer(vbYes);
            Dialogs::queueText(env.file("callbacks.pdf"));
            screen.findChild<QPushButton *>("cmdPRCallback")->click();
            QVERIFY(Pdf_Pages(env.file("callbacks.pdf")).join("").contains("Ruby Paton"));
        }
        Connection other;
        other.open();
        other.execute("ALTER TABLE dances RENAME TO dances_gone");
        screen.findChild<QPushButton *>("CmdRpt")->click();
        QCOMPARE(Dialogs::lastRecord().title + ": " + Dialogs::lastRecord().text,
                 QString("Validation Error: There has been an error udating this result. Please retry!"));
        other.execute("ALTER TABLE dances_gone RENAME TO dances");

        FrmReports lineups;
        QCOMPARE(lineups.LstGroup->item(0)->text(), QString("Open "));
        lineups.LstGroup->setCurrentRow(3);
        lineups.LstGroup_Click();
        QCOMPARE(Current_Group_Id, QString("E1"));
        QCOMPARE(previews(), QStringList({"DataReport3", "DataReport5", "DataReport6"}));
    }
};

QTEST_MAIN(TestResultSheets)
#include "test_result_sheets.moc"
