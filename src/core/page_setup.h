#pragma once
#include <QPageLayout>

// The page chosen under File, Page Setup: the sheets are laid out on it for
// preview, print and PDF. Until the operator chooses, each sheet keeps its own.
bool Page_Chosen();
QPageLayout Chosen_Page_Layout();
void Choose_Page_Layout(const QPageLayout &layout);
