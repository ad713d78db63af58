// The five sheets of a Championship and a Premiership filled from real tallies,
// rendered to PDF and read back as a steward would read them.
#include "tally/tally_fill.h"
#include "reports/pdf_text.h"
#include "reports/report.h"
#include "tally/three_judge/sheets/three_judge_sheets.h"
#include "tally/three_judge/three_judge_tally.h"

#include <QtTest>

using namespace ThreeJudge;

namespace {

// Twelve dancers, four dances, judges 1 to 12 and a thirteenth on another
// dance. 106 and 107 are alike in every mark, so they tie at sixth; judge 1
// disqualifies 101 in the first dance; 101 has no address; only judge 3
// places 108, who ends eighth in every dance with no place points.
struct Championship
{
    Tally_Event t{QStringLiteral("C")};
    Sheet_Event e;

    Championship()
    {
        Current_Competition_Name = QStringLiteral("Cowal Gathering");
        t.conn.execute(QStringLiteral("UPDATE age_groups SET championship_title = 'Scottish Open', championship_type = 'C' WHERE competition_group_id = 'E1'"));
        for (int n = 101; n <= 112; ++n) {
            Fixture::Competitor(t.conn, t.comp, n, QStringLiteral("Dancer"), QString::number(n), {QStringLiteral("E1")});
            if (n != 101)
                t.conn.execute(QStringLiteral("UPDATE competitors SET address1 = 'Glen Road', town = 'Dunoon', postcode = 'PA23' WHERE competitor_id = ?"), {n});
        }
        for (short dance = 1; dance <= 4; ++dance) {
            t.select(QStringLiteral("E1"), dance);
            for (int judge = 1; judge <= 3; ++judge) {
                const int id = Fixture::Judge(t.conn, t.comp, QStringLiteral("Judge"), QString(QChar('A' + (dance - 1) * 3 + judge - 1)));
                t.conn.execute(QStringLiteral("INSERT INTO judges_results_judges VALUES (?, 'E1', ?, ?, ?)"), {t.comp, dance, judge, id});
            }
            for (int n = 101; n <= 112; ++n) {
                const int m = 100 - (n == 107 ? 106 : n) + 100;
                t.marks(n, dance == 1 && n == 101 ? -1 : m, m, n == 108 ? 94.5 : m);
            }
            Tally_Dance(t.conn);
        }
        const int thirteenth = Fixture::Judge(t.conn, t.comp, QStringLiteral("Judge"), QStringLiteral("Z"));
        t.conn.execute(QStringLiteral("INSERT INTO judges_results_judges VALUES (?, 'E1', 5, 1, ?)"), {t.comp, thirteenth});
        Tally_Overall(t.conn);
        e.competition = t.comp;
        e.group = QStringLiteral("E1");
        e.eventText = QStringLiteral("Under 12 Scottish Open");
        e.premiership = false;
        e.danceCaptions = {QStringLiteral("Fling"), QStringLiteral("Swords"), QStringLiteral("Seann Truibhas"), QStringLiteral("Reel")};
    }

    QString text(const std::shared_ptr<Report> &r)
    {
        const QString pdf = t.env.file(r->Name() + QStringLiteral(".pdf"));
        r->Render_Pdf(pdf);
        return Pdf_Pages(pdf).join(QLatin1Char('\n'));
    }
};

} // namespace

class TestThreeJudgeSheets : public QObject
{
    Q_OBJECT
private slots:
    void sheets_data();
    void sheets();
    void premiershipDancesInCategoryOrder();
};

void TestThreeJudgeSheets::sheets_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<bool>("options");   // judges' points and addresses
    QTest::addColumn<QStringList>("present");
    QTest::addColumn<QStringList>("absent");
    QTest::newRow("overall, three prizes, no points")
        << "overall" << false
        << QStringList{"Cowal Gathering", "Under 12 Scottish Open", "Fling", "1 102 Dancer 102, Dunoon", "1 102 Dancer 102, Dunoon",
                       "2RU 103 Dancer 103", "Overall", "Winner", "Callbacks:101 102 103 104 105 106 107"}
        << QStringList{"3RU 104 Dancer 104", "---- Championship Points ----", "108 Dancer 108"};
    QTest::newRow("overall, judges' points on")
        << "overall" << true << QStringList{"---- Championship Points ----", "108 Dancer 108, Dunoon", "Callbacks:101 102 103 104 105 106 107 108"}
        << QStringList{};
    QTest::newRow("judges: D label and not in the list")
        << "judges" << false
        << QStringList{"Judge A", "Judge L", "102 137", "Dancers with placings:", "101 Dancer 101 102 Dancer 102 103 Dancer 103"}
        << QStringList{"Judge Z"};
    QTest::newRow("callbacks") << "callbacks" << false << QStringList{"106 Dancer 106 Dunoon", "107 Dancer 107 Dunoon"}
                               << QStringList{"108 Dancer 108"};
    QTest::newRow("top ten") << "top10" << false << QStringList{"101 Dancer 101,", "107 Dancer 107, Dunoon"} << QStringList{"112 Dancer"};
    QTest::newRow("SOBHD return")
        << "sobhd" << true
        << QStringList{"SCOTTISH OFFICIAL BOARD OF HIGHLAND DANCING", "1. Judge A", "12. Judge L", "Scottish Open", "Closed",
                       "(No entries: 12)", "6= Dancer 106", "6= Dancer 107", "2. Dancer 102", "Address.....", "Glen Road",
                       "Test Games"}
        << QStringList{"13. Judge", "Judge Z", "6. Dancer"};
}

void TestThreeJudgeSheets::sheets()
{
    QFETCH(QString, sheet);
    QFETCH(bool, options);
    QFETCH(QStringList, present);
    QFETCH(QStringList, absent);
    Championship c;
    Opt_Judges_Points = options;
    Opt_Show_Address = options;
    c.e.noOverallPrizes = 3;
    const QMap<QString, decltype(&Fill_Overall_Report)> fill = {
        {"overall", &Fill_Overall_Report}, {"judges", &Fill_Judges_Report}, {"callbacks", &Fill_Callback_Report},
        {"top10", &Fill_Top_10_Report}, {"sobhd", &Fill_Sobhd_Return}};
    const std::shared_ptr<Report> r = fill.value(sheet)(c.t.conn, c.e);
    if (sheet == QLatin1String("judges")) {
        QCOMPARE(r->Controls(QStringLiteral("Section5"), QStringLiteral("flingd1")).Caption, QStringLiteral("101 "));
        QVERIFY(!r->Controls(QStringLiteral("Section2"), QStringLiteral("Fling1")).Caption.contains(QStringLiteral("101 ")));
    }
    if (sheet == QLatin1String("sobhd"))
        QVERIFY(r->Controls(QStringLiteral("Section2"), QStringLiteral("Txt7")).Visible);
    const QString text = c.text(r);
    const QString flat = text;
    for (const QString &p : present)
        QVERIFY2(flat.contains(p), qPrintable(p + QStringLiteral(" missing from:\n") + flat));
    for (const QString &a : absent)
        QVERIFY2(!flat.contains(a), qPrintable(a + QStringLiteral(" should not be on:\n") + flat));
    Opt_Judges_Points = Opt_Show_Address = false;
}

void TestThreeJudgeSheets::premiershipDancesInCategoryOrder()
{
    Tally_Event t(QStringLiteral("PS"));
    Fixture::Category_Dances(t.conn, t.comp, QStringLiteral("PS"), {7, 6, 1, 2});
    for (int n = 1; n <= 7; ++n)
        Fixture::Competitor(t.conn, t.comp, n, QStringLiteral("Prem"), QString::number(n), {QStringLiteral("E1")});
    Sheet_Event e;
    e.competition = t.comp;
    e.group = QStringLiteral("E1");
    e.danceCaptions = {QStringLiteral("Pas de Basque and High Cuts"), QStringLiteral("Pas de Basque"), QStringLiteral("Fling"), QStringLiteral("Swords")};
    e.danceIds = {0, 7, 6, 1, 2};
    for (int i = 1; i <= 4; ++i) {
        t.select(QStringLiteral("E1"), e.danceIds[i]);
        for (int n = 1; n <= 7; ++n)
            t.marks(n, 90 - n * (i == 1 ? 1 : -1), 80, 70);
        Tally_Dance(t.conn);
    }
    Tally_Overall(t.conn);
    const auto r = Fill_Overall_Report(t.conn, e);
    // The first dance of the category is the first column, with its own winner.
    QCOMPARE(r->Controls(QStringLiteral("Section2"), QStringLiteral("dance1")).Caption.section(QLatin1Char('\r'), 0, 0), QStringLiteral("1   1 Prem 1, "));
    QCOMPARE(r->Controls(QStringLiteral("Section2"), QStringLiteral("Dance2")).Caption.section(QLatin1Char('\r'), 0, 0), QStringLiteral("1   7 Prem 7, "));
    QCOMPARE(r->Controls(QStringLiteral("Section2"), QStringLiteral("Label2")).Caption, e.danceCaptions[0]);
}

QTEST_MAIN(TestThreeJudgeSheets)
#include "test_three_judge_sheets.moc"
