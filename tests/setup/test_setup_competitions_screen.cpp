#include "screen_driver.h"
#include "setup_fill.h"
#include "setup/FrmEvents.h"
#include "support/test_env.h"

#include "core/dialogs.h"
#include "core/globals.h"

#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

using Fixture::Count;

class TestCompetitionsScreen : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void new_competition_typed_and_saved();
    void name_and_date_are_required();
    void delete_cascades_and_leaves_name_and_date();
    void copy_with_no_and_with_yes();
    void copy_refuses_missing_name_and_reports_a_fault();

private:
    FrmEvents *open();
    std::unique_ptr<TestDataFolder> m_env;
    std::unique_ptr<FrmEvents> m_screen;
};

void TestCompetitionsScreen::init()
{
    m_env = std::make_unique<TestDataFolder>();
}

void TestCompetitionsScreen::cleanup()
{
    if (m_screen) {
        m_screen->Set_Dirty(false);
        m_screen->close();
    }
    m_screen.reset();
    m_env.reset();
}

FrmEvents *TestCompetitionsScreen::open()
{
    m_screen = std::make_unique<FrmEvents>();
    Driver(m_screen.get()).show();
    return m_screen.get();
}

void TestCompetitionsScreen::new_competition_typed_and_saved()
{
    FrmEvents *f = open();
    Driver d(f);
    QCOMPARE(f->windowTitle(), QString("Strathmark 2017 - Competitions"));
    QCOMPARE(f->CmdCopy->toolTip(), QString("Create a copy of an existing competition"));
    QCOMPARE(f->Cell(0, 1), QString("Name"));
    QCOMPARE(f->Cell(0, 8), QString("Online ID"));
    QCOMPARE(f->Cell(0, 9), QString("Online Email"));
    QCOMPARE(f->Cell(0, 10), QString("Online Key"));
    QVERIFY(!f->FrmCopy1->isVisible());

    const QStringList values = {"Braemar", "6/9/2026", "Ann O'Neil", "Sec", "Park", "Braemar", "Main St", "R1"};
    for (int col = 1; col <= values.size(); ++col)
        d.enter(1, col, values.at(col - 1));
    QVERIFY(f->Dirty());
    f->CmdSave->click();
    QCOMPARE(Dialogs::lastRecord().kind, QString("timed"));
    QCOMPARE(Dialogs::lastRecord().text, QString("Changes Saved!"));
    QCOMPARE(Dialogs::lastRecord().title, QString("Confirmation"));
    QVERIFY(!f->Dirty());

    Connection c;
    c.open();
    QCOMPARE(Count(c, "competitions"), 1);
    const short id = c.scalar("SELECT competition_id FROM competitions").toInt();
    QCOMPARE(Current_Competition_Id, id);
    QCOMPARE(f->Cell(1, 0), QString::number(id));
    QCOMPARE(c.scalar("SELECT competition_organiser FROM competitions").toString(), QString("Ann O'Neil"));
    // The online login of a new row is dropped at save.
    QVERIFY(c.scalar("SELECT registration_id FROM competitions").isNull());
    QCOMPARE(f->Cell(1, 8), QString());
    QCOMPARE(Count(c, "categories", QString("competition_id=%1").arg(id)), 4);
    QCOMPARE(Count(c, "category_dances", QString("competition_id=%1").arg(id)), 12);
    // The refreshed grid carries the other wording.
    QCOMPARE(f->Cell(0, 8), QString("Reg ID"));
    QCOMPARE(f->Cell(0, 9), QString("Reg Email"));
    QCOMPARE(f->Cell(0, 10), QString("Reg Key"));

    // On the saved row the login is kept; an emptied cell stores NULL.
    d.enter(1, 8, "R1");
    d.enter(1, 3, "");
    f->CmdSave->click();
    QCOMPARE(c.scalar("SELECT registration_id FROM competitions").toString(), QString("R1"));
    QVERIFY(c.scalar("SELECT competition_organiser FROM competitions").isNull());

    // A new row with only its name: Enter stays on that row, column 1.
    f->CmdAdd->click();
    QCOMPARE(f->Row_Count(), 3);
    d.type("Cowal");
    d.press(Qt::Key_Tab);
    d.press(Qt::Key_Return);
    QCOMPARE(f->Row_Count(), 3);
    QCOMPARE(f->Current_Row(), 2);
    QCOMPARE(f->Current_Col(), 1);
    f->Set_Dirty(false);
}

void TestCompetitionsScreen::name_and_date_are_required()
{
    Connection c;
    c.open();
    Fixture::Competition(c, "Lonach", "22/8");
    Fixture::Competition(c, "Cowal", "27/8");
    Fixture::Competition(c, "Aboyne", "1/8");
    FrmEvents *f = open();
    Driver d(f);
    // Listed by name.
    QCOMPARE(f->Cell(1, 1) + "," + f->Cell(2, 1) + "," + f->Cell(3, 1), QString("Aboyne,Cowal,Lonach"));
    for (int col : {1, 2}) {
        Dialogs::clearRecords();
        d.enter(1, col, "");
        QVERIFY(f->Editor_Open());
        QCOMPARE(Dialogs::lastRecord().text,
                 QString("Name and date are required! If you wish to delete this record, enter a value first"));
        QCOMPARE(Dialogs::lastRecord().title, QString("Validation Error"));
        QCOMPARE(Dialogs::lastRecord().style, int(vbExclamation));
        d.press(Qt::Key_Escape);
    }
    // Any other column takes anything, empty included.
    Dialogs::clearRecords();
    d.enter(1, 5, "");
    QVERIFY(!f->Editor_Open());
    QVERIFY(Dialogs::records().isEmpty());
    // Opening the editor counted as an edit.
    QVERIFY(f->Dirty());
    f->Set_Dirty(false);
}

void TestCompetitionsScreen::delete_cascades_and_leaves_name_and_date()
{
    Connection c;
    c.open();
    const short a = Fixture::Competition(c, "Aboyne", "1/8");
    const short b = Fixture::Competition(c, "Braemar", "6/9");
    for (short comp : {a, b}) {
        Fixture::Event(c, comp, "1A", "Under 8", "PRI");
        Fixture::Competitor(c, comp, 101, "Ann", "Ross", {"1A"});
        Fill_Event_Rows(c, comp, "1A", 1, Fixture::Judge(c, comp, "Jean", "Grant"));
    }
    const int t1 = Add_Trophy(c, b, "Cup", "1A");
    const int t2 = Add_Trophy(c, b, "Shield", "1A");

    FrmEvents *f = open();
    Driver d(f);
    const int row = d.rowOf(1, "Braemar");
    QCOMPARE(row, 2);
    QMap<QString, int> before;
    const QStringList tables = {"age_groups", "competitors", "competitor_groups", "judges", "categories",
                                "category_dances", "overall_dance_results", "comp_judges_results", "dance_no_prizes"};
    for (const QString &t : tables)
        before[t] = Count(c, t);

    d.go(row, 1);
    Dialogs::queueAnswer(vbNo);
    f->cmdDel->click();
    QCOMPARE(Dialogs::lastRecord().text,
             QString("Are you sure you want to delete Competition? \nIt will also delete all associated results and entries."));
    QCOMPARE(Dialogs::lastRecord().title, QString("Deletion Confirmation"));
    for (const QString &t : tables)
        QCOMPARE(Count(c, t), before[t]);
    QCOMPARE(f->Row_Count(), 3);

    d.go(row, 1);
    Dialogs::queueAnswer(vbYes);
    f->cmdDel->click();
    QCOMPARE(f->txtEdit->text(), QString(" "));
    for (const QString &t : tables) {
        QVERIFY2(Count(c, t, QString("competition_id=%1").arg(b)) == 0, qPrintable(t));
        QVERIFY2(Count(c, t, QString("competition_id=%1").arg(a)) == before[t] / 2, qPrintable(t));
    }
    QCOMPARE(Count(c, "competitions"), 1);
    QCOMPARE(Count(c, "custom_reports"), 0);
    QCOMPARE(Count(c, "custom_reports_groups", QString("id=%1").arg(t1)), 0);
    QCOMPARE(Count(c, "custom_reports_groups", QString("id=%1").arg(t2)), 1);
    QCOMPARE(f->Row_Count(), 2);
    QCOMPARE(f->Cell(1, 1), QString("Aboyne"));

    // The last row: the grid is cleared and only Name and Date come back.
    d.go(1, 1);
    f->Set_Dirty(false);
    f->cmdDel->click();
    QCOMPARE(Count(c, "competitions"), 0);
    QCOMPARE(Count(c, "categories"), 0);
    QCOMPARE(f->Row_Count(), 2);
    QCOMPARE(f->Cell(0, 1), QString("Name"));
    QCOMPARE(f->Cell(0, 2), QString("Date"));
    QCOMPARE(f->Cell(0, 3), QString());
    QCOMPARE(f->Cell(1, 1), QString());
    QVERIFY(!f->Dirty());
}

void TestCompetitionsScreen::copy_with_no_and_with_yes()
{
    Connection c;
    c.open();
    const short s = Fixture::Competition(c, "Source", "2026");
    Fixture::Event(c, s, "1A", "Under 8", "PRI");
    Fixture::Competitor(c, s, 101, "Ann", "Ross", {"1A"});
    Fixture::Competitor(c, s, 102, "Beth", "Moir", {"1A"});
    Fixture::Judge(c, s, "Jean", "Grant");
    const short other = Fixture::Competition(c, "Another", "2025");
    Current_Competition_Id = other;

    FrmEvents *f = open();
    Driver d(f);
    d.go(d.rowOf(1, "Source"), 1);
    f->CmdCopy_Click();
    QCOMPARE(Dialogs::lastRecord().text, QString("Changes Saved!"));
    QVERIFY(f->FrmCopy1->isVisible());
    QVERIFY(f->FrmCopy2->isVisible());
    QCOMPARE(f->lblCopyTxt2->text(), QString("Source"));
    QCOMPARE(f->LstCopyComp->currentItem()->text(), QString("No"));
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(f->TxtCompname));
    QTest::keyClicks(f->TxtCompname, "Copy No");
    QTest::keyClicks(f->TxtCompDate, "2027");
    f->cmdcreate->click();
    QVERIFY(!f->FrmCopy1->isVisible());
    QCOMPARE(Current_Competition_Id, s);
    const short n1 = c.scalar("SELECT competition_id FROM competitions WHERE competition_name='Copy No'").toInt();
    QVERIFY(n1 > 0);
    QCOMPARE(Count(c, "competitors", QString("competition_id=%1").arg(n1)), 0);
    QCOMPARE(Count(c, "age_groups", QString("competition_id=%1").arg(n1)), 1);
    QCOMPARE(Count(c, "categories", QString("competition_id=%1").arg(n1)), 4);
    QCOMPARE(Count(c, "judges", QString("competition_id=%1").arg(n1)), 0);
    QVERIFY(d.rowOf(1, "Copy No") > 0);

    d.go(d.rowOf(1, "Source"), 1);
    f->CmdCopy_Click();
    QTest::keyClicks(f->TxtCompname, "Copy Yes");
    QTest::keyClicks(f->TxtCompDate, "2027");
    f->LstCopyComp->setCurrentRow(1);
    QCOMPARE(f->LstCopyComp->currentItem()->text(), QString("Yes!"));
    f->cmdcreate->click();
    const short n2 = c.scalar("SELECT competition_id FROM competitions WHERE competition_name='Copy Yes'").toInt();
    QCOMPARE(Count(c, "competitors", QString("competition_id=%1").arg(n2)), 2);
    QCOMPARE(Count(c, "competitor_groups", QString("competition_id=%1 AND group_id='1A'").arg(n2)), 2);
    QCOMPARE(Count(c, "judges", QString("competition_id=%1").arg(n2)), 0);
    QCOMPARE(Current_Competition_Id, s);
    QCOMPARE(Count(c, "competitions"), 4);

    // Cancel only hides the panel.
    f->CmdCopy_Click();
    f->CmdCancel->click();
    QVERIFY(!f->FrmCopy1->isVisible());
    QCOMPARE(Count(c, "competitions"), 4);
}

void TestCompetitionsScreen::copy_refuses_missing_name_and_reports_a_fault()
{
    Connection c;
    c.open();
    const short s = Fixture::Competition(c, "Source", "2026");
    Fixture::Event(c, s, "1A", "Under 8", "PRI");
    c.execute("UPDATE age_groups SET no_prizes = NULL");
    FrmEvents *f = open();
    Driver d(f);
    d.go(1, 1);
    f->CmdCopy_Click();
    QTest::keyClicks(f->TxtCompname, "Half");
    f->cmdcreate->click();
    QCOMPARE(Dialogs::lastRecord().text, QString("Name and date fields are required!"));
    QCOMPARE(Dialogs::lastRecord().title, QString("Validation Error"));
    QVERIFY(f->FrmCopy1->isVisible());
    QCOMPARE(Count(c, "competitions"), 1);
    // The source is current even though nothing was copied.
    QCOMPARE(Current_Competition_Id, s);

    QTest::keyClicks(f->TxtCompDate, "2027");
    f->cmdcreate->click();
    QCOMPARE(Dialogs::lastRecord().text, QString("There was an error copying this competition!"));
    QCOMPARE(Dialogs::lastRecord().title, QString("Data Error"));
    // The half-made copy stays, to be deleted by hand.
    QCOMPARE(Count(c, "competitions"), 2);
    QCOMPARE(Count(c, "categories"), 8);
}

QTEST_MAIN(TestCompetitionsScreen)
#include "test_setup_competitions_screen.moc"
