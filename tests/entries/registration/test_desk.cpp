// The sign-in desk driven from the keyboard as on the day, and what the mark
// screen's "registered" filter makes of it.
#include "entries/registration/frmRegistration.h"
#include "tally/competition_screen/screen_driver.h"

#include "core/contacts.h"
#include "core/dialogs.h"
#include "core/globals.h"
#include "support/fixtures.h"
#include "support/test_env.h"

#include <QApplication>
#include <QLabel>
#include <QtTest>

namespace {

struct Desk
{
    TestDataFolder env;
    Connection c;
    std::unique_ptr<frmRegistration> s;

    Desk()
    {
        c.open();
        Current_Competition_Id = Fixture::Competition(c);
        Fixture::Event(c, Current_Competition_Id, "A", "Highland 10 & Under", "H");
        const QList<QStringList> dancers = {{"7", "Ailsa", "Grant", "Oban"},      {"12", "Morag", "Mackenzie", "Oban"},
                                            {"15", "Morag", "Mackenzie", "Inverness"}, {"20", "Morag", "Baird", "Elgin"},
                                            {"31", "Kirsty", "O'Neill", "Perth"}};
        for (const QStringList &d : dancers) {
            Fixture::Competitor(c, Current_Competition_Id, d[0].toInt(), d[1], d[2], {"A"});
            c.execute("UPDATE competitors SET town = ?, age = 11, teacher = 'Mrs Ross' WHERE competitor_id = ?",
                      {d[3], d[0].toInt()});
        }
        s = std::make_unique<frmRegistration>();
        s->show();
        QApplication::setActiveWindow(s.get());
        (void)QTest::qWaitForWindowActive(s.get());
        Dialogs::clearRecords();
    }
    // Types into a box, as after a click in it, and ends with Enter.
    void Type(QLineEdit *box, const QString &text, bool enter = true)
    {
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, text);
        if (enter)
            QTest::keyClick(box, Qt::Key_Return);
    }
    QString Shown()
    {
        if (s->frm_reg->isVisible()) {
            QString out = "shown " + s->update_num->text() + " " + s->update_firstname->text();
            for (QLabel *l : s->frm_reg->findChildren<QLabel *>(QRegularExpression("^(img|lbl)_")))
                out += l->isVisible() ? " " + l->objectName() : QString();
            return out;
        }
        QStringList items;
        for (int i = 0; i < s->lst_results->count(); ++i)
            items << s->lst_results->item(i)->text();
        return s->lst_results->isVisible() ? items.join(" | ") : Dialogs::lastRecord().text;
    }
};

} // namespace

class TestDesk : public QObject
{
    Q_OBJECT
private slots:
    void search_data()
    {
        QTest::addColumn<QStringList>("boxes");
        QTest::addColumn<QString>("outcome");
        QTest::newRow("number") << QStringList{"7", "", ""} << "shown 7 Ailsa img_reg_yes";
        QTest::newRow("namesakes") << QStringList{"", "morag", "mackenzie"}
                                   << "12 Morag Mackenzie, Oban | 15 Morag Mackenzie, Inverness";
        QTest::newRow("by surname") << QStringList{"", "Morag", ""}
                                    << "20 Morag Baird, Elgin | 12 Morag Mackenzie, Oban | 15 Morag Mackenzie, Inverness";
        QTest::newRow("apostrophe") << QStringList{"", "", "o'neill"} << "shown 31 Kirsty img_amber lbl_no_card";
        QTest::newRow("none") << QStringList{"99", "", ""} << "No competitors found!";
        QTest::newRow("word") << QStringList{"abc", "", ""} << "You must enter a valid competitor number!";
        QTest::newRow("over 16 bits") << QStringList{"40000", "", ""} << "You must enter a valid competitor number!";
    }

    void search()
    {
        QFETCH(QStringList, boxes);
        QFETCH(QString, outcome);
        Desk d;
        d.c.execute("UPDATE competitors SET registered = CASE competitor_id WHEN 7 THEN 1 WHEN 31 THEN 0 END");
        d.Type(d.s->search_firstname, boxes[1], false);
        d.Type(d.s->search_lastname, boxes[2], false);
        d.Type(d.s->search_num, boxes[0]);
        QCOMPARE(d.Shown(), outcome);
        if (outcome.contains('|')) {
            QTest::keyClick(d.s->lst_results, Qt::Key_Down);
            QTest::keyClick(d.s->lst_results, Qt::Key_Return);
            QCOMPARE(d.Shown(), "shown " + outcome.left(2) + " Morag img_reg_no");
        }
    }

    void register_after_an_edit_data()
    {
        QTest::addColumn<QString>("edit");   // box=typed text
        QTest::addColumn<int>("answer");
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("last_box");
        const QString done = "timed Confirmation: Registration Complete!";
        QTest::newRow("No loses the edit") << "teacher=Mrs O'Neill" << int(vbNo) << "Mrs Ross|1 hidden" << done;
        QTest::newRow("Yes keeps it") << "teacher=Mrs O'Neill" << int(vbYes) << "Mrs O'Neill|1 hidden" << done;
        QTest::newRow("age not a number") << "age=ten" << int(vbYes) << "11| shown"
                                          << "msgbox Strathmark 2017: An error occured. Please email "
                                                 + QString(Contacts::Support_Email);
    }

    void register_after_an_edit()
    {
        QFETCH(QString, edit);
        const QString box = edit.section('=', 0, 0);
        QFETCH(int, answer);
        QFETCH(QString, stored);
        QFETCH(QString, last_box);
        Desk d;
        d.Type(d.s->search_num, "12");
        Dialogs::queueAnswer(answer);
        d.Type(d.s->findChild<QLineEdit *>("update_" + box), edit.section('=', 1));   // Enter registers
        QCOMPARE(Dialogs::texts().value(0), QString("Do you want to save your changes? "));
        const Dialogs::Record last = Dialogs::lastRecord();
        QCOMPARE(last.kind + " " + last.title + ": " + last.text, last_box);
        QCOMPARE(d.c.scalar("SELECT ifnull(" + box + ", '') || '|' || ifnull(registered, '') FROM competitors "
                            "WHERE competitor_id = 12").toString() + (d.s->frm_reg->isVisible() ? " shown" : " hidden"),
                 stored);
    }

    void register_all_leaves_signed_in_dancers()
    {
        Desk d;
        d.c.execute("UPDATE competitors SET registered = CASE competitor_id WHEN 12 THEN 1 WHEN 15 THEN 0 END");
        for (int n : {7, 12, 15, 20})   // 20 has a row but no mark yet
            d.c.execute("INSERT INTO comp_judges_results(competition_id, group_id, dance_id, competitor_id, "
                        "points_awarded1) VALUES(?, 'A', 1, ?, ?)",
                        {Current_Competition_Id, n, n == 20 ? QVariant() : QVariant(80)});
        d.c.execute("INSERT INTO judges_results(competition_id, group_id, dance_id, competitor_id, points_awarded3) "
                    "VALUES(?, 'C', 1, 31, 3)",
                    {Current_Competition_Id});
        QTest::mouseClick(d.s->cmd_reg_all, Qt::LeftButton);
        QCOMPARE(Dialogs::lastRecord().title, QString("Registration Confirmation"));
        // 7, 12, 15, 20 and 31: only those with a mark and no state yet become 0.
        QCOMPARE(d.c.scalar("SELECT group_concat(ifnull(registered, '-'), '') FROM (SELECT registered FROM "
                            "competitors ORDER BY competitor_id)").toString(),
                 QString("010-0"));
    }

    void mark_filter_follows_the_desk()
    {
        Desk d;
        d.Type(d.s->search_num, "7");
        QTest::keyClick(d.s->cmd_register, Qt::Key_Return);
        d.Type(d.s->search_num, "15");
        QTest::mouseClick(d.s->cmd_no_card, Qt::LeftButton);
        FrmTallyComp marks;
        marks.show();
        Drive::Pick(Drive::List(marks, "LstGroup"), "Highland 10 & Under");
        Drive::Pick(Drive::List(marks, "lst_filter"), "Yes");
        QCOMPARE(Drive::Column(Drive::Grid(marks, "MSFlexGrid1"), 0), QStringList({"7", "15"}));
        d.Type(d.s->search_num, "15");
        QTest::mouseClick(d.s->cmd_unreg, Qt::LeftButton);
        Drive::Pick(Drive::List(marks, "lst_filter"), "No");
        Drive::Pick(Drive::List(marks, "lst_filter"), "Yes");
        QCOMPARE(Drive::Column(Drive::Grid(marks, "MSFlexGrid1"), 0), QStringList({"7"}));
    }
};

QTEST_MAIN(TestDesk)
#include "test_desk.moc"
