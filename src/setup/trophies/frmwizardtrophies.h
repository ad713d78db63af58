#pragma once
#include "trophy_logic.h"
#include "ui/screen.h"

class QFrame;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

// Defines the competition's overall trophies on four pages: the trophy, its
// events, its dances and the free-field values that narrow who counts. Each
// page's choice is written in full when the page is left.
class frmwizardtrophies : public Screen
{
    Q_OBJECT
public:
    explicit frmwizardtrophies(QWidget *parent = nullptr);
    ~frmwizardtrophies() override;

private:
    // The two lists and buttons of one detail page.
    struct Detail
    {
        Trophy_Page page;
        QFrame *frame = nullptr;
        QListWidget *available = nullptr;
        QListWidget *included = nullptr;
        QString main, info, resetQuestion, hint;
    };

    void Build_First_Page();
    QFrame *Build_Detail(Detail &d, const char *frame, const char *available, const char *included,
                         const char *add, const char *del, const char *reset, const char *prev, const char *next,
                         const QString &nextCaption, const QString &addCaption, const QString &delCaption,
                         const QString &what);
    void Show_Page(QFrame *frame, const QString &main, const QString &info);
    void Read_Trophies(int select);
    void lstselect_Click();
    void cmdcreate_Click();
    void cmdnext0_Click();
    void cmddelete0_Click();
    void Open_Detail(int index);
    void Move_Items(QListWidget *from, QListWidget *to);
    bool Save_Detail(int index);
    void Leave_Detail(int index, int to);
    void Reset_Detail(int index);
    void Error_Box();

    QList<int> m_ids;        // trophy ids by position in lstselect
    int m_trophy = 0;
    bool m_creating = false;
    Detail m_details[3];

    QLabel *LblMain = nullptr;
    QLabel *LblInfo = nullptr;
    QFrame *frmnew = nullptr;
    QListWidget *lstselect = nullptr;
    QLineEdit *txtname = nullptr;
    QPushButton *cmdcreate = nullptr;
    QPushButton *cmdnext0 = nullptr;
    QPushButton *cmddelete0 = nullptr;
};
