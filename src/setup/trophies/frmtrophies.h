#pragma once
#include "ui/screen.h"

class QListWidget;

// The competition's overall trophies; choosing one shows its table of the
// ten best dancers (DataReport8).
class frmtrophies : public Screen
{
    Q_OBJECT
public:
    explicit frmtrophies(QWidget *parent = nullptr);
    ~frmtrophies() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void List1_Click();

    QList<int> m_ids;   // trophy ids by list position
    QListWidget *List1 = nullptr;
};
