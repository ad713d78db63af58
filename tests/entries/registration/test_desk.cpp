// The sign-in desk driven from the keyboard as on the day, and what the mark
// screen's "registered" filter makes of it.
#include "entries/registration/frmRegistration.h"
#include "tally/competition_screen/screen_driver.h"

#include "core/contacts.h"
#include "core/db.h"
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
    QVariant Stored(int number, const QString &field)
    {
        return c.scalar("SELECT " + field + " FROM competitors WHERE competitor_id = ?", {number});
    }
    QString Shown()
    {
        if (s->frm_reg->isVisible())
            return "shown " + s->update_num->text() + " " + s->update_firstname->text();
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
    void search_data();
    void search();
    void register_after_an_edit_data();
    void register_after_an_edit();
    void buttons_and_pictures_follow_the_state();
    void register_all_leaves_signed_in_dancers();
    void mark_filter_follows_the_desk();
};

void TestDesk::search_data()
{
    QTest::addColumn<QStringList>("boxes");
    QTest::addColumn<QString>("outcome");
    QTest::newRow("number") << QStringList{"7", "", ""} << "shown 7 Ailsa";
    QTest::newRow("namesakes") << QStringList{"", "morag", "mackenzie"}
                               << "12 Morag Mackenzie, Oban | 15 Morag Mackenzie, Inverness";
    QTest::newRow("by surname") << QStringList{"", "Morag", ""}
                                << "20 Morag Baird, Elgin | 12 Morag Mackenzie, Oban | 15 Morag Mackenzie, Inverness";
    QTest::newRow("apostrophe") << QStringList{"", "", "o'neill"} << "shown 31 Kirsty";
    QTest::newRow("none") << QStringList{"99", "", ""} << "No competitors found!";
    QTest::newRow("word") << QStringList{"abc", "", ""} << "You must enter a valid competitor number!";
    QTest::newRow("over 16 bits") << QStringList{"40000", "", ""} << "You must enter a valid competitor number!";
}

void TestDesk::search()
{
    QFETCH(QStringList, boxes);
    QFETCH(QString, outcome);
    Desk d;
    d.Type(d.s->search_firstname, boxes[1], false);
    d.Type(d.s->search_lastname, boxes[2], false);
    d.Type(d.s->search_num, boxes[0]);
    QCOMPARE(d.Shown(), outcome);
    if (outcome.contains('|')) {
        QTest::keyClick(d.s->lst_results, Qt::Key_Down);
        QTest::keyClick(d.s->lst_results, Qt::Key_Return);
        QCOMPARE(d.Shown(), "shown " + outcome.left(2) + " Morag");
    }
}

void TestDesk::register_after_an_edit_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("answer");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("box_text");
    QTest::newRow("No loses the edit") << "teacher" << "Mrs O'Neill" << int(vbNo) << "Mrs Ross|1"
                                       << "Registration Complete!";
    QTest::newRow("Yes keeps it") << "teacher" << "Mrs O'Neill" << int(vbYes) << "Mrs O'Neill|1"
                                  << "Registration Complete!";
    QTest::newRow("age not a number") << "age" << "ten" << int(vbYes) << "11|"
                                      << QString("An error occured. Please email ") + Contacts::Support_Email;
}

void TestDesk::register_after_an_edit()
{
    QFETCH(QString, box);
    QFETCH(QString, typed);
    QFETCH(int, answer);
    QFETCH(QString, stored);
    QFETCH(QString, box_text);
    Desk d;
    d.Type(d.s->search_num, "12");
    Dialogs::queueAnswer(answer);
    d.Type(d.s->findChild<QLineEdit *>("update_" + box), typed);   // Enter registers
    QCOMPARE(Dialogs::texts().value(0), QString("Do you want to save your changes? "));
    QCOMPARE(Dialogs::lastRecord().text, box_text);
    QCOMPARE(d.Stored(12, box).toString() + "|" + d.Stored(12, "registered").toString(), stored);
    if (d.Stored(12, "registered").isNull()) {
        QVERIFY(d.s->frm_reg->isVisible());   // the desk stays as it was
    } else {
        QCOMPARE(Dialogs::lastRecord().kind + " " + Dialogs::lastRecord().title, QString("timed Confirmation"));
        QVERIFY(!d.s->frm_reg->isVisible());
        QCOMPARE(QApplication::focusWidget(), d.s->search_num);
    }
}

void TestDesk::buttons_and_pictures_follow_the_state()
{
    Desk d;
    const QList<QPair<QPushButton *, QString>> steps = {{d.s->cmd_register, "img_reg_yes 1"},
                                                        {d.s->cmd_no_card, "img_amber lbl_no_card 0"},
                                                        {d.s->cmd_unreg, "img_reg_no "}};
    d.Type(d.s->search_num, "31");
    QVERIFY(d.s->img_reg_no->isVisible() && !d.s->img_reg_yes->isVisible() && !d.s->img_amber->isVisible());
    for (const auto &[button, expected] : steps) {
        QTest::mouseClick(button, Qt::LeftButton);
        d.Type(d.s->search_num, "31");
        QStringList shown;
        for (QLabel *l : d.s->frm_reg->findChildren<QLabel *>(QRegularExpression("^(img|lbl)_")))
            if (l->isVisible())
                shown << l->objectName();
        QCOMPARE(shown.join(' ') + " " + d.Stored(31, "registered").toString(), expected);
    }
    QCOMPARE(Dialogs::texts().filter("Complete!"),
             QStringList({"Registration Complete!", "Registration Complete!", "Unregister Complete!"}));
}

void TestDesk::register_all_leaves_signed_in_dancers()
{
    Desk d;
    d.c.execute("UPDATE competitors SET registered = 1 WHERE competitor_id = 12");
    d.c.execute("UPDATE competitors SET registered = 0 WHERE competitor_id = 15");
    for (int n : {7, 12, 15, 20})   // 20 has a row but no mark yet
        d.c.execute("INSERT INTO comp_judges_results(competition_id, group_id, dance_id, competitor_id, "
                    "points_awarded1) VALUES(?, 'A', 1, ?, ?)",
                    {Current_Competition_Id, n, n == 20 ? QVariant() : QVariant(80)});
    d.c.execute("INSERT INTO judges_results(competition_id, group_id, dance_id, competitor_id, points_awarded3) "
                "VALUES(?, 'C', 1, 31, 3)",
                {Current_Competition_Id});
    QTest::mouseClick(d.s->cmd_reg_all, Qt::LeftButton);
    QCOMPARE(Dialogs::lastRecord().title, QString("Registration Confirmation"));
    RowSet rs = d.c.query("SELECT ifnull(registered, '-') FROM competitors ORDER BY competitor_id");
    QStringList states;
    for (; !rs.eof(); rs.next())
        states << rs.value(0).toString();
    QCOMPARE(states, QStringList({"0", "1", "0", "-", "0"}));
}

void TestDesk::mark_filter_follows_the_desk()
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

QTEST_MAIN(TestDesk)
#include "test_desk.moc"
