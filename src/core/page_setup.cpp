#include "page_setup.h"

namespace {

QPageLayout &chosen()
{
    static QPageLayout layout;
    return layout;
}

} // namespace

bool Page_Chosen() { return chosen().isValid(); }
QPageLayout Chosen_Page_Layout() { return chosen(); }
void Choose_Page_Layout(const QPageLayout &layout) { chosen() = layout; }
