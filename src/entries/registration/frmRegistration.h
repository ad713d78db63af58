#pragma once
#include "ui/screen.h"

#include <QVariant>

class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

// The sign-in desk: finds a dancer by number or name, shows the entry for
// correction, and records that the dancer has signed in. Enter searches after
// a reset and registers while a dancer is shown.
class frmRegistration : public Screen
{
    Q_OBJECT
public:
    explicit frmRegistration(QWidget *parent = nullptr);

    QLineEdit *search_num = nullptr;
    QLineEdit *search_firstname = nullptr;
    QLineEdit *search_lastname = nullptr;
    QPushButton *cmd_search = nullptr;
    QPushButton *cmd_cancel = nullptr;
    QLabel *lbl_results = nullptr;
    QListWidget *lst_results = nullptr;
    QPushButton *cmd_reg_all = nullptr;

    QGroupBox *frm_reg = nullptr;
    QLineEdit *update_num = nullptr;
    QLineEdit *update_firstname = nullptr;
    QLineEdit *update_lastname = nullptr;
    QLineEdit *update_address1 = nullptr;
    QLineEdit *update_address2 = nullptr;
    QLineEdit *update_town = nullptr;
    QLineEdit *update_age = nullptr;
    QLineEdit *update_teacher = nullptr;
    QLineEdit *update_notes = nullptr;
    QLabel *img_reg_yes = nullptr;
    QLabel *img_reg_no = nullptr;
    QLabel *img_amber = nullptr;
    QLabel *lbl_no_card = nullptr;
    QPushButton *cmd_register = nullptr;
    QPushButton *cmd_no_card = nullptr;
    QPushButton *cmd_unreg = nullptr;
    QPushButton *cmd_save = nullptr;

    void cmd_search_Click();
    void cmd_cancel_Click();
    void lst_results_Click(int row);
    void cmd_register_Click();
    void cmd_no_card_Click();
    void cmd_unreg_Click();
    void cmd_save_Click();
    void cmd_reg_all_Click();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Build_Search();
    void Build_Entry();
    void Reset_Desk();
    void Show_Dancer();
    void Save_Work();
    void Sign_In(const QVariant &state, const QString &message);
    void Desk_Failure();

    short m_number = 0;
    QList<short> m_numbers;   // dancers by place in lst_results
    bool m_dirty = false;     // an update box was typed into
    // A search box was typed into since the dancer was shown: Enter searches.
    bool m_searchEdited = false;
};
