#include "setup/wizard/frmWizard.h"
#include "support/fixtures.h"
#include "support/test_env.h"

#include "core/db.h"
#include "core/dialogs.h"
#include "core/globals.h"

#include <QtTest>

// The wizard driven from the keyboard. A script's steps are split by "|":
// >keys typed into whatever has the focus ("~" Tab, "^" Enter, "<" Backspace),
// @name the focus put on a control, ?n the answer to the next box.
class TestWizard : public QObject
{
    Q_OBJECT
private slots:
    void makes_what_the_keys_say_data();
    void makes_what_the_keys_say();
};

namespace {

void Play(const QString &script)
{
    for (const QString &step : script.split('|')) {
        const QString arg = step.mid(1);
        if (step[0] == '?')
            Dialogs::queueAnswer(arg.toInt());
        if (step[0] == '@')
            qApp->activeWindow()->findChild<QWidget *>(arg)->setFocus(Qt::OtherFocusReason);
        for (QChar c : step[0] == '>' ? arg : QString()) {
            const int key = c == '~' ? Qt::Key_Tab : c == '^' ? Qt::Key_Return : c == '<' ? Qt::Key_Backspace : 0;
            if (key)
                QTest::keyClick(QApplication::focusWidget(), Qt::Key(key));
            else
                QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
            for (int i = 0; i < 3; ++i)
                QCoreApplication::processEvents();
        }
        QCoreApplication::processEvents();
    }
}

QString Column(Connection &c, const QString &sql)
{
    QStringList out;
    for (RowSet rs = c.query(sql); !rs.eof(); rs.next())
        out << rs.value(0).toString();
    return out.join(' ');
}

// What the wizard leaves: competitions (the current one starred), events,
// generated categories and their dances, and the counts of standard rows.
QString Dump(Connection &c)
{
    return Column(c, QString("SELECT competition_name || ifnull('/' || nullif(competition_organiser, ''), '') || "
                             "CASE WHEN competition_id = %1 THEN '*' ELSE '' END FROM competitions ORDER BY 1")
                         .arg(Current_Competition_Id))
           + " ev:" + Column(c, "SELECT competition_group_id||'/'||age_group||'/'||category||'/'||split_ages||'/'||"
                                "ifnull(championship_title,'-')||'/'||ifnull(championship_type,'-')||'/'||orderby "
                                "FROM age_groups ORDER BY group_id")
           + " new:" + Column(c, "SELECT category_id||'='||category FROM categories WHERE category_id LIKE 'DNC%'")
           + " " + Column(c, "SELECT category_id||':'||dance_id||':'||orderby FROM category_dances WHERE "
                             "category_id LIKE 'DNC%' ORDER BY orderby")
           + " n:" + Column(c, "SELECT (SELECT count(*) FROM categories)||','||(SELECT count(*) FROM category_dances)");
}

const QString Details = ">Games~1/7/26~O'Neill~Sec~Park~Oban~1 Main St~^";
const QString More = "Do you want to create any more age groups? ";
const QString Unique = "Group Code must be unique! Re-enter or leave blank for a system default code";

} // namespace

void TestWizard::makes_what_the_keys_say_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("database");
    QTest::addColumn<QStringList>("boxes");
    QTest::addColumn<bool>("open");

    QTest::newRow("highland, code left blank") << Details + "|?7|>Under 8~~Highland~~^"
        << "Games/O'Neill* Held ev:1/Under 8/H/N///1 new:  n:8,24" << QStringList{More} << false;
    QTest::newRow("championship closed, then a split event")
        << Details + "|?6|>Open~ch~Championship~~St Andrew's~C~^|?7|>Under 12~~Highland~Y~^"
        << "Games/O'Neill* Held ev:CH/Open/C/N/St Andrew's/C/1 2/Under 12/H/Y///2 new:  n:8,24"
        << QStringList{More, More} << false;
    QTest::newRow("other with dances, then same as it")
        << Details + "|>Nationals~5~Other~~^|>^^|@List2|>^|@List1|>Fling^|?6|@cmdDancesNext|>^|?7|>Seniors~~Same~~^"
        << "Games/O'Neill* Held ev:5/Nationals/DNC1/N/-/-/1 2/Seniors/DNC1/N///2 new:DNC1=Dance Category 1 "
           "DNC1:17:0 DNC1:1:1 n:9,26"
        << QStringList{More, More} << false;
    QTest::newRow("lower-case code collides")
        << Details + "|?6|>Under 8~a~Highland~~^|>Under 9~a~|@CmdGroupNext|>^|><~Highland~~|?7|>^"
        << "Games/O'Neill* Held ev:A/Under 8/H/N///1 2/Under 9/H/N///2 new:  n:8,24"
        << QStringList{More, Unique, Unique, More} << false;
    QTest::newRow("required fields and category")
        << ">~|@CmdCompetitionNext|>^|>Games~~|>1/7/26|@CmdCompetitionNext|>^|@CmdGroupNext|>^|>Under 8|@CmdGroupNext|>^"
        << "Games* Held ev: new:  n:8,24"
        << QStringList{"Competition Name is required", "Competition Name is required", "Competition Date is required",
                       "Age Group Name is required", "You must select a Dance Category"}
        << true;
    const QString exit = "Do you want to exit Wizard?";
    QTest::newRow("cancel first panel, no") << "?7|@CmdCompetitionCancel|>^" << "Held* ev: new:  n:4,12"
                                            << QStringList{exit} << true;
    // Before anything is made the held competition is the one deleted.
    QTest::newRow("cancel first panel, yes") << ">Games|?6|?6|@CmdCompetitionCancel|>^" << " ev: new:  n:0,0"
        << QStringList{exit, "Do you want to delete all data for this competition 'Games'?"} << false;
    QTest::newRow("cancel events panel, keep") << Details + "|?6|?7|@CmdGroupCancel|>^"
        << "Games/O'Neill* Held ev: new:  n:8,24"
        << QStringList{exit, "Do you want to delete all data for this competition 'Games'?"} << false;
    QTest::newRow("cancel dances panel, delete") << Details + "|>Nat~~Other~~^|>^|?6|?6|@cmdDancesCancel|>^"
        << "Held ev: new:  n:4,12"
        << QStringList{exit, "Do you want to delete all data for this competition 'Games'?"} << false;
}

void TestWizard::makes_what_the_keys_say()
{
    QFETCH(QString, script);
    TestDataFolder env;
    Connection c;
    c.open();
    Current_Competition_Id = Fixture::Competition(c, "Held");
    frmWizard f;
    f.show();
    QApplication::setActiveWindow(&f);
    QVERIFY(QTest::qWaitForWindowActive(&f));
    Play(script);
    QTEST(Dump(c), "database");
    QTEST(Dialogs::texts(), "boxes");
    QTEST(f.isVisible(), "open");
}

QTEST_MAIN(TestWizard)
#include "test_wizard.moc"
