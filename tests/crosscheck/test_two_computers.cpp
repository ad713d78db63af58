// Two data folders stand for the two computers: the same events typed into
// both through the mark screens with check mode on, then this computer
// checks the other's file, as each operator would.
#include "core/globals.h"
#include "reports/pdf_text.h"
#include "settings/frmconfig.h"
#include "support/fixtures.h"
#include "support/screen_script.h"
#include "support/test_env.h"
#include "tally/competition/screen/FrmTallyComp.h"
#include "tally/three_judge/screen/three_judge_screen.h"

#include <QPlainTextEdit>
#include <QPushButton>
#include <QPrintPreviewDialog>
#include <QPrinter>

namespace {
const QString Marks = "80\n75\n70\n65\n", Event[] = {"Juvenile 10-12", "Adult Scottish Championship"};

std::unique_ptr<GridScreen> Type_Event(bool champ, const QString &keys)
{
    Connection conn;
    conn.open();
    Current_Competition_Id = Fixture::Competition(conn, "Cowal Gathering");
    Fixture::Event(conn, Current_Competition_Id, "J", Event[0], "H");
    Fixture::Event(conn, Current_Competition_Id, "C", "Adult", "C");
    conn.execute("UPDATE age_groups SET championship_title = 'Scottish Championship' WHERE category = 'C'");
    for (int n = 101; n <= 105; ++n)
        Fixture::Competitor(conn, Current_Competition_Id, n, "Ann", "O'Neill",
                            n < 105 ? QStringList{"J", "C"} : QStringList{"J"});   // 105 dances in one event only
    std::unique_ptr<GridScreen> s(champ ? static_cast<GridScreen *>(new ThreeJudgeScreen(Championship_Kind()))
                                        : new FrmTallyComp);
    // One mark a step: the mark screen moves its cursor after the key is read.
    const QString marks = keys.isEmpty() ? "" : "|>" + keys.split('\n', Qt::SkipEmptyParts).join("\n|>") + "\n";
    Run_Script(s.get(), conn, "!LstGroup:" + Event[champ] + "|@1," + (champ ? "4" : "1") + marks
                                  + (champ ? "|!Cmd_Tally" : "|!CmdTally"));
    return s;
}

QString Pdf_Of(QPrintPreviewDialog *preview, const QString &path)
{
    QPrinter printer;
    printer.setOutputFileName(path);   // a ".pdf" name makes it a PDF printer
    emit preview->paintRequested(&printer);
    return Pdf_Pages(path).join('\n');
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
    QTest::addColumn<QString>("here");    // keys typed into the marks on this computer
    QTest::addColumn<QString>("there");   // and on the other
    QTest::addColumn<QString>("file");    // the other's file: "-" deleted, "a>b" changed ("\t>\t" kept)
    QTest::addColumn<QString>("box");     // title and text of the last box
    QTest::addColumn<QString>("shown");   // the sheet's text in order, or the two checker boxes
    const QString match = "Confirmation: !!! Results Match !!!", none = "Strathmark 2017: The directory selected has "
                          "no compare files for this group!", error = "ERROR: !!! NO MATCH !!!";
    const QString keep = "\t>\t", one = "80\n75\n60\n65\n", swap = "75\n80\n70\n65\n", champ = Marks + Marks + Marks;
    const QString side = "Computer\nDance: Fling\nJudge: %1\nNo: %2\nPlace: %3\n";
    QTest::newRow("comp equal") << false << Marks << Marks << keep << match << "";
    QTest::newRow("comp one mark") << false << Marks << one << keep << "" << "Dance Results|Fling 103 3 Fling 104 3|Judges";
    QTest::newRow("comp extra line") << false << Marks << Marks + "50\n" << keep << "" << "Fling 105 5|Judges Results";
    QTest::newRow("comp both empty") << false << "" << "" << keep << match << "";
    QTest::newRow("champ equal") << true << champ << champ << keep << match << "|";
    QTest::newRow("champ one mark") << true << champ << Marks + one + Marks << keep << error
                                    << "This " + side.arg("2", "103", "3") + "|Remote " + side.arg("2", "104", "3");
    QTest::newRow("champ judge order") << true << Marks + swap + Marks << swap + champ << keep << error
                                       << "This " + side.arg("1", "101", "1") + "|Remote " + side.arg("1", "102", "1");
    QTest::newRow("champ tie mark") << true << champ << champ << "\t1  \t>\t1 =\t" << error
                                    << "This Computer\nDance: Judge: No: Place: |Remote Computer\nDance: Judge: No: Place: ";
    QTest::newRow("champ no file") << true << champ << champ << "-" << none << "Before 1|Before 2";
}

void TestTwoComputers::check()
{
    QFETCH(bool, champ);
    QFETCH(QString, here);
    QFETCH(QString, there);
    QFETCH(QString, file);
    QFETCH(QString, box);
    QFETCH(QString, shown);
    TestDataFolder other, self;
    Data_Dir = other.path(), Opt_Check_Mode = 1;
    Type_Event(champ, there);
    QFile f(other.file("Compare/" + Event[champ] + ".cmp"));
    QVERIFY(f.exists() && f.open(QIODevice::ReadWrite | QIODevice::Unbuffered) && (f.size() > 0) == !there.isEmpty());
    const QByteArray bytes = f.readAll().replace(file.section('>', 0, 0).toLatin1(), file.section('>', 1).toLatin1());
    QVERIFY(file == "-" ? f.remove() : f.resize(0) && f.write(bytes) == bytes.size());

    Data_Dir = self.path(), Opt_Check_Dir = other.path() + "compare";   // the folder is "Compare" on disk
    Check_Text_1 = "Before 1", Check_Text_2 = "Before 2";
    auto s = Type_Event(champ, here);
    Dialogs::clearRecords();
    QTest::mouseClick(s->findChild<QPushButton *>("CmdCheck"), Qt::LeftButton);
    QCOMPARE(Dialogs::records().isEmpty() ? "" : Dialogs::lastRecord().title + ": " + Dialogs::lastRecord().text, box);
    auto *preview = s->window()->findChild<QPrintPreviewDialog *>("DataReport7");
    QCOMPARE(preview != nullptr, !champ && box.isEmpty());
    if (champ)
        QCOMPARE(s->findChild<QPlainTextEdit *>("txt_checker1")->toPlainText() + "|"
                     + s->findChild<QPlainTextEdit *>("txt_checker2")->toPlainText(), shown);
    else if (preview)
        QVERIFY(In_Order(Pdf_Of(preview, self.file("check.pdf")), shown.split('|')));
    if (const QString shots = qEnvironmentVariable("CROSSCHECK_SHOTS"); preview && !shots.isEmpty())
        preview->grab().save(shots + "/DataReport7.png"), frmconfig(s.get()).grab().save(shots + "/frmconfig.png");
}

QTEST_MAIN(TestTwoComputers)
#include "test_two_computers.moc"
