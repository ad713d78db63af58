#include "frmSelectCompetition.h"
#include "competition_list.h"
#include "geometry_store.h"
#include "core/globals.h"

#include <QGroupBox>
#include <QListWidget>
#include <QVBoxLayout>

frmSelectCompetition::frmSelectCompetition(QWidget *parent)
    : Screen(QStringLiteral("frmSelectCompetition"), App_Title + QStringLiteral(" - Select Competition"), parent)
{
    auto *frame = new QGroupBox(QStringLiteral("Select Competition"), this);
    frame->setObjectName(QStringLiteral("Frame1"));
    LstComp = new QListWidget(frame);
    LstComp->setObjectName(QStringLiteral("LstComp"));
    QFont f = LstComp->font();
    f.setPointSizeF(f.pointSizeF() * 1.3);
    LstComp->setFont(f);
    auto *inner = new QVBoxLayout(frame);
    inner->addWidget(LstComp);
    auto *outer = new QVBoxLayout(this);
    outer->addWidget(frame);
    resize(Twips_To_Pixels(8508), Twips_To_Pixels(9000));

    if (Open_Connection()) {
        for (const Competition_Choice &c : Read_Competition_List(conn())) {
            auto *item = new QListWidgetItem(c.text, LstComp);
            item->setData(Qt::UserRole, int(c.id));
        }
    }
    // A click picks the competition; so does Enter on the highlighted one.
    connect(LstComp, &QListWidget::itemClicked, this, &frmSelectCompetition::LstComp_Click);
    connect(LstComp, &QListWidget::itemActivated, this, &frmSelectCompetition::LstComp_Click);
}

void frmSelectCompetition::LstComp_Click(QListWidgetItem *item)
{
    if (!item || !conn().isOpen())
        return;
    Select_Competition(conn(), static_cast<short>(item->data(Qt::UserRole).toInt()));
    conn().close();
    Unload();
}
