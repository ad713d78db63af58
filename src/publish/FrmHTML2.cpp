#include "FrmHTML2.h"
#include "frmbrogard.h"
#include "hosted_site.h"
#include "results_site.h"

#include "core/globals.h"

static Site_Edition Results_Edition()
{
    return {QStringLiteral("FrmHTML2"), App_Title + QStringLiteral(" - Generate HTML"), true,
            [](short id) {
                return QStringLiteral("Select competition_group_id, ifnull(championship_title,'') || ' ' || "
                                      "ifnull(age_group,'') as age_group, category FROM age_groups WHERE "
                                      "competition_id = %1 ORDER BY 2").arg(id);
            },
            &Results_Site::Run};
}

static Site_Edition Hosted_Edition()
{
    return {QStringLiteral("frmbrogard"), App_Title + QStringLiteral(" - Generate Hosted Results"), false,
            [](short id) {
                return QStringLiteral("Select competition_group_id, age_group, category FROM age_groups WHERE "
                                      "competition_id = %1 ORDER BY 2").arg(id);
            },
            // Always the data folder, whatever the screen was given.
            [](Site_Source &src, const QString &, const QList<Site_Event> &events, const std::function<void()> &step) {
                return Hosted_Site::Run(src, Data_Dir, events, step);
            }};
}

FrmHTML2::FrmHTML2(QWidget *parent) : Site_Screen(Results_Edition(), parent) {}

frmbrogard::frmbrogard(QWidget *parent) : Site_Screen(Hosted_Edition(), parent) {}
