#pragma once
#include "competitor_rules.h"
#include "ui/grid/grid_screen.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

// The dancers of the current competition on the shared grid editor, with the
// event lookup on F2 and the search panel that replaces the grid's statement.
class frmCompetitors : public GridScreen
{
    Q_OBJECT
public:
    explicit frmCompetitors(QWidget *parent = nullptr);

    Competitor_Rules &Rules() { return static_cast<Competitor_Rules &>(rules()); }

    QPushButton *CmdViewSearch = nullptr;

    // The event lookup.
    QGroupBox *FrameAG = nullptr;
    QListWidget *LstAG = nullptr;
    QPushButton *CmdGroupCancel = nullptr;

    // The search panel.
    QGroupBox *FrameSearch = nullptr;
    QComboBox *Combo1 = nullptr;
    QLineEdit *SearchNo = nullptr;
    QLineEdit *SearchForename = nullptr;
    QLineEdit *SearchSurname = nullptr;
    QLineEdit *SearchTeacher = nullptr;
    QLineEdit *SearchAgeFrom = nullptr;
    QLineEdit *SearchAgeTo = nullptr;
    QComboBox *Search_Registered = nullptr;
    QComboBox *SearchOrder = nullptr;
    QCheckBox *chk_winners = nullptr;
    QPushButton *CmdSearch = nullptr;
    QPushButton *CmdCancelSearch = nullptr;

    bool Event_List_Loaded() const { return m_eventListLoaded; }

    void LstAG_Click(int index);
    void CmdGroupCancel_Click();
    void CmdViewSearch_Click();
    void CmdCancelSearch_Click();
    void CmdSearch_Click();

protected:
    bool F2_Lookup(bool fromEditor) override;
    void Set_Headers(bool afterSave) override;
    void Delete_Captions(bool yes, bool cleared) override;
    void Form_Unload() override;
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Build_Event_Frame();
    void Build_Search_Frame();
    void Place_Frames();
    void Widen_Narrow_Columns();
    void Read_Event_List();
    void Fill_Combo1();
    void Reset_Search();

    QStringList m_lookupCodes;      // codes of LstAG by position, one spare place
    bool m_eventListLoaded = false;
    QStringList m_searchCodes;      // codes of Combo1 by position
    QString m_searchCode;           // the chosen event
    QString m_registeredFilter;
    QString m_searchOrder = QStringLiteral("2 DESC");
};
