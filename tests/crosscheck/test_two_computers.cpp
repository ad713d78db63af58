// Two data folders stand for the two computers: the same events typed into
// both through the mark screens with check mode on, then this computer
// checks the other's file, as each operator would.
#include "core/globals.h"
#include "reports/pdf_text.h"
#include "support/fixtures.h"
#include "support/screen_script.h"
#include "support/test_env.h"
#include "tally/competition/screen/FrmTallyComp.h"
#include "tally/three_judge/screen/three_judge_screen.h"

#include <QPlainTextEdit>
#include <QPrintPreviewDialog>
#include <QPrinter>

namespace {
const QString Marks = "80\n75\n70\n65\n", Event[] = {"Juvenile 10-12", "Adult Scottish Championship"};

// A Competition event and a Championship on the same dance ids 1 to 4.
void Two_Events(Connection &conn)
{
    const short comp = Current_Competition_Id = Fixture::Competition(conn, "Cowal Gathering");
    Current_Competition_Name = "Cowal Gathering";
    Fixture::Event(conn, comp, "J", Event[0], "H");
    Fixture::Event(conn, comp, "C", "Adult", "C");
    conn.execute("UPDATE age_groups SET championship_title = 'Scottish Championship' WHERE category = 'C'");
    for (int n = 101; n <= 105; ++n)   // 105 dances in one event only
        Fixture::Competitor(conn, comp, n, "Ann", "O'Neill", n < 105 ? QStringList{"J", "C"} : QStringList{"J"});
}

std::unique_ptr<GridScreen> Type_Event(bool champ, const QString &keys)
{
    Connection conn;
    conn.open();
    Two_Events(conn);
    std::unique_ptr<GridScreen> s(champ ? static_cast<GridScreen *>(new ThreeJudgeScreen(Championship_Kind()))
                                        : new FrmTallyComp);
    // One mark a step: the mark screen moves its cursor after the key is read.
    const QString marks = keys.isEmpty() ? "" : "|>" + keys.split('\n', Qt::SkipEmptyParts).join("\n|>") + "\n";
    Run_Script(s.get(), conn, "!LstGroup:" + Event[champ] + "|@1," + (champ ? "4" : "1") + marks
                                  + (champ ? "|!Cmd_Tally" : "|!CmdTally"));
    return s;
}
// What one event came to: its rows in every mark and result table (a random
// draw's numbers only as drawn or not), its compare file, and the boxes and
// sheets its screen showed, the sheets' time of printing left out.
QString Event_Outcome(Connection &conn, const QString &group, const QString &event, const QStringList &shown)
{
    QStringList out;
    for (const char *table : {"comp_judges_results", "judges_results", "judges_results_judges", "dance_results",
                              "overall_dance_results", "overall_results", "highland_results", "national_results",
                              "tie_break", "dance_no_dancers"}) {
        RowSet rs = conn.query(QString("SELECT * FROM %1 WHERE group_id = ?").arg(table), {group});
        QStringList rows;
        for (; !rs.eof(); rs.next()) {
            QStringList fields;
            for (int f = 0; f < rs.fieldCount(); ++f)
                fields << (rs.fieldName(f) == "orderby" ? QString(rs.value(f).isNull() ? "-" : "drawn")
                                                         : rs.value(f).toString());
            rows << fields.join(',');
        }
        rows.sort();
        out << QString(table) + ": " + rows.join(" / ");
    }
    QFile file(Data_Dir + "Compare/" + event + ".cmp");
    out << "file: " + (file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()) : QString("none"));
    return (out + shown).join('\n');
}

// Works the steps ("C|script" on the Competition screen, "P|script" on the
// Championship screen; "c|" and "p|" without making it the active window) in
// a fresh data folder, those of one screen only when alone is set.
QStringList Work(const QStringList &steps, QChar alone = {})
{
    TestDataFolder folder;
    Data_Dir = folder.path(), Opt_Check_Mode = 1, Opt_Auto_Save = true, Opt_Check_Dir = folder.path() + "Compare";
    Connection conn;
    conn.open();
    Two_Events(conn);
    FrmTallyComp comp;
    ThreeJudgeScreen champ(Championship_Kind());
    QStringList shown[2];
    for (const QString &step : steps) {
        const bool onChamp = step[0].toUpper() == 'P';
        if (!alone.isNull() && step[0].toUpper() != alone)
            continue;
        GridScreen *s = onChamp ? static_cast<GridScreen *>(&champ) : &comp;
        if (step[0].isUpper() && s->isVisible())
            QApplication::setActiveWindow(s), s->MSFlexGrid1->setFocus();
        Dialogs::clearRecords();
        Run_Script(s, conn, step.mid(2));
        shown[onChamp] << Dialogs::texts();
        for (QPrintPreviewDialog *preview : s->findChildren<QPrintPreviewDialog *>()) {
            QPrinter printer;
            printer.setOutputFileName(folder.file("sheet.pdf"));
            emit preview->paintRequested(&printer);
            for (const QString &line : Pdf_Pages(folder.file("sheet.pdf")).join('\n').split('\n'))
                if (!line.startsWith("Printed: "))
                    shown[onChamp] << line;
            delete preview;
        }
    }
    QStringList outcome;
    if (alone.isNull() || alone == 'C')
        outcome << Event_Outcome(conn, "J", Event[0], shown[0]) + "\ncell 5,1: " + comp.Cell(5, 1);
    if (alone.isNull() || alone == 'P')
        outcome << Event_Outcome(conn, "C", Event[1], shown[1]);
    comp.Set_Dirty(false), champ.Set_Dirty(false);
    return outcome;
}
} // namespace

class TestTwoComputers : public QObject
{
    Q_OBJECT
private slots:
    void check_data();
    void check();
    void two_mark_screens_data();
    void two_mark_screens();
};

void TestTwoComputers::check_data()
{
    QTest::addColumn<bool>("champ");
    QTest::addColumn<QStringList>("keys");   // typed into the marks here and on the other computer
    QTest::addColumn<QString>("file");       // the other's file: "-" deleted, "a>b" changed ("\t>\t" kept)
    QTest::addColumn<QString>("outcome");    // the last box # the sheet's text in order, or the checker boxes
    const QString match = "Confirmation: !!! Results Match !!!#", error = "ERROR: !!! NO MATCH !!!#";
    const QString keep = "\t>\t", one = "80\n75\n60\n65\n", swap = "75\n80\n70\n65\n", champ = Marks + Marks + Marks;
    const QString side = "Computer\nDance: Fling\nJudge: %1\nNo: %2\nPlace: %3\n";
    QTest::newRow("comp equal") << false << QStringList{Marks, Marks} << keep << match;
    QTest::newRow("comp one mark") << false << QStringList{Marks, one} << keep << "#Dance Results|Fling 103 3 Fling 104 3|Judges";
    QTest::newRow("comp extra line") << false << QStringList{Marks, Marks + "50\n"} << keep << "#Fling 105 5|Judges Results";
    QTest::newRow("comp both empty") << false << QStringList{"", ""} << keep << match;
    QTest::newRow("champ equal") << true << QStringList{champ, champ} << keep << match + "|";
    QTest::newRow("champ one mark") << true << QStringList{champ, Marks + one + Marks} << keep
                                    << error + "This " + side.arg("2", "103", "3") + "|Remote " + side.arg("2", "104", "3");
    QTest::newRow("champ judge order") << true << QStringList{Marks + swap + Marks, swap + champ} << keep
                                       << error + "This " + side.arg("1", "101", "1") + "|Remote " + side.arg("1", "102", "1");
    QTest::newRow("champ tie mark") << true << QStringList{champ, champ} << "\t1  \t>\t1 =\t"
                                    << error + "This Computer\nDance: Judge: No: Place: |Remote Computer\nDance: Judge: No: Place: ";
    QTest::newRow("champ no file") << true << QStringList{champ, champ} << "-" << "Strathmark 2017: The directory selected has no compare files for this group!#Before 1|Before 2";
}

void TestTwoComputers::check()
{
    QFETCH(bool, champ);
    QFETCH(QStringList, keys);
    QFETCH(QString, file);
    QFETCH(QString, outcome);
    TestDataFolder other, self;
    Data_Dir = other.path(), Opt_Check_Mode = 1;
    Type_Event(champ, keys[1]);
    QFile f(other.file("Compare/" + Event[champ] + ".cmp"));
    QVERIFY(f.exists() && f.open(QIODevice::ReadWrite | QIODevice::Unbuffered) && (f.size() > 0) == !keys[1].isEmpty());
    const QByteArray bytes = f.readAll().replace(file.section('>', 0, 0).toLatin1(), file.section('>', 1).toLatin1());
    QVERIFY(file == "-" ? f.remove() : f.resize(0) && f.write(bytes) == bytes.size());

    Data_Dir = self.path(), Opt_Check_Dir = other.path() + "compare";   // the folder is "Compare" on disk
    Check_Text_1 = "Before 1", Check_Text_2 = "Before 2";
    auto s = Type_Event(champ, keys[0]);
    Dialogs::clearRecords();
    QTest::mouseClick(s->findChild<QWidget *>("CmdCheck"), Qt::LeftButton);
    const Dialogs::Record box = Dialogs::records().value(0);
    QCOMPARE(box.title.isEmpty() ? "" : box.title + ": " + box.text, outcome.section('#', 0, 0));
    auto *preview = s->window()->findChild<QPrintPreviewDialog *>("DataReport7");
    QCOMPARE(preview != nullptr, !champ && box.title.isEmpty());
    const QString shown = outcome.section('#', 1);
    QPrinter printer;
    printer.setOutputFileName(self.file("check.pdf"));   // a ".pdf" name makes it a PDF printer
    if (preview)
        emit preview->paintRequested(&printer);
    if (champ)
        QCOMPARE(s->findChild<QPlainTextEdit *>("txt_checker1")->toPlainText() + "|"
                     + s->findChild<QPlainTextEdit *>("txt_checker2")->toPlainText(), shown);
    else
        QVERIFY(In_Order(Pdf_Pages(self.file("check.pdf")).join('\n'), shown.split('|')));
}

void TestTwoComputers::two_mark_screens_data()
{
    QTest::addColumn<QStringList>("steps");
    const QString judge = "80\n75\n70\n65\n", reel = ">70\n80\n65\n75\n81\n76\n71\n66\n60\n85\n72\n67\n";
    const QStringList steps = {
        "C|!LstGroup:" + Event[0], "P|!LstGroup:" + Event[1], "C|@1,1|>80\n75\n70\n65\n60\n|!CmdTally",
        "P|@1,4|>" + judge + judge + judge + "|!Cmd_Tally", "C|!Cmd2|@1,1|>60\n65\n70\n75\n80\n|!CmdRpt",
        "P|!Cmd_Reel|@1,4|" + reel + "|!CmdHR", "c|!cmdCallback", "p|!CmdRand|!cmdCallback", "c|!CmdCheck",
        "P|!CmdPrepare|!CmdCheck", "C|!Cmd3|@1,1|>50\n40\n|!CmdRpt", "P|!Cmd_Swords|@1,4|" + reel + "|!Cmd_Tally",
        // A click on the event shown reloads it, with what the store now holds.
        "c|$UPDATE comp_judges_results SET points_awarded1 = 99 WHERE competitor_id = 105 AND dance_id = 3|!LstGroup:"
            + Event[0],
        "P|!LstGroup:" + Event[1] + "|!CmdCheck", "C|@3,1|>30\n|!CmdTally|!CmdCheck|!CmdRpt"};
    QTest::newRow("back and forth") << steps;
    QStringList activated = steps;
    for (QString &step : activated)
        step[0] = step[0].toUpper();
    QTest::newRow("each screen made active") << activated;
}

// Both mark screens open, choices, marks, tallies, sheets, compare files and
// checks interleaved on two events: each event ends as when worked alone.
void TestTwoComputers::two_mark_screens()
{
    QFETCH(QStringList, steps);
    const QStringList together = Work(steps);
    QCOMPARE(together.value(0), Work(steps, 'C').value(0));
    QCOMPARE(together.value(1), Work(steps, 'P').value(0));
    QVERIFY(together.value(0).contains("cell 5,1: 99"));
    for (const QString &outcome : together)
        QVERIFY(outcome.count("!!! Results Match !!!") == 2 && outcome.contains("Call-Back Sheet\n")
                && !outcome.contains("file: none"));
}

QTEST_MAIN(TestTwoComputers)
#include "test_two_computers.moc"
