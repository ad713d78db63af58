#pragma once
#include "site_source.h"

#include "ui/screen.h"

#include <QList>
#include <functional>

class QCheckBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QScrollBar;

// What sets one edition of the results site apart on the selection screen.
struct Site_Edition
{
    QString formName;
    QString caption;
    bool browse = false;                            // CmdBrowse chooses the location
    std::function<QString(short)> listSql;          // the event list of a competition
    // Writes the site under a location; returns the Html folder.
    std::function<QString(Site_Source &, const QString &, const QList<Site_Event> &, const std::function<void()> &)> run;
};

// The screen that ticks the events to publish and writes the site.
class Site_Screen : public Screen
{
    Q_OBJECT
public:
    explicit Site_Screen(const Site_Edition &edition, QWidget *parent = nullptr);
    ~Site_Screen() override;

    // The ticked events, in list order.
    QList<Site_Event> Selected() const;
    // Seeds the hidden letters, so that a run can be compared whole.
    void Seed_Letters(quint32 seed) { m_letters.seed(seed); }

protected:
    void Form_Unload() override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void Build_Controls();
    void Form_Load();
    void arrayText_Click(int index);
    void CmdSel_Click();
    void CmdBrowse_Click();
    void CmdRun_Click();
    void CmdUpload_Click();
    void Place_Boxes();

    Site_Edition m_edition;
    Letter_Source m_letters;
    QList<Site_Event> m_events;                     // the full list
    QList<Site_Event> m_selection;                  // a ticked row's copy, or an empty row
    QString m_location;
    QString m_site;                                 // the folder written by the last run
    QWidget *m_view = nullptr;
    QWidget *PicBox = nullptr;
    QLabel *lblFiller = nullptr;
    QLabel *Label1 = nullptr;
    QScrollBar *VScroll = nullptr;
    QList<QCheckBox *> arrayText;
    QPushButton *CmdSel = nullptr;
    QPushButton *CmdBrowse = nullptr;
    QPushButton *CmdRun = nullptr;
    QPushButton *CmdUpload = nullptr;
    QProgressBar *ProgressBar1 = nullptr;
};
