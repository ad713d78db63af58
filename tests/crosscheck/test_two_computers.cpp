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

std::unique_ptr<GridScreen> Type_Event(bool champ, const QString &keys)
{
    Connection conn;
    conn.open();
    const short comp = Current_Competition_Id = Fixture::Competition(conn, "Cowal Gathering");
    Fixture::Event(conn, comp, "J", Event[0], "H");
    Fixture::Event(conn, comp, "C", "Adult", "C");
    conn.execute("UPDATE age_groups SET championship_title = 'Scottish Championship' WHERE category = 'C'");
    for (int n = 101; n <= 105; ++n)   // 105 dances in one event only
        Fixture::Competitor(conn, comp, n, "Ann", "O'Neill", n < 105 ? QStringList{"J", "C"} : QStringList{"J"});
    std::unique_ptr<GridScreen> s(champ ? static_cast<GridScreen *>(new ThreeJudgeScreen(Championship_Kind()))
                                        : new FrmTallyComp);
    // One mark a step: the mark screen moves its cursor after the key is read.
    const QString marks = keys.isEmpty() ? "" : "|>" + keys.split('\n', Qt::SkipEmptyParts).join("\n|>") + "\n";
    Run_Script(s.get(), conn, "!LstGroup:" + Event[champ] + "|@1," + (champ ? "4" : "1") + marks
                                  + (champ ? "|!Cmd_Tally" : "|!CmdTally"));
    return s;
}
} // namespace

class TestTwoComputers : public QObject
{
    Q_OBJECT
private slots:
    void check_data();
    void check();
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

QTEST_MAIN(TestTwoComputers)
#include "test_two_computers.moc"
