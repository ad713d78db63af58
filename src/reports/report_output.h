#pragma once
#include <QString>
#include <memory>

class QPrintPreviewDialog;
class QWidget;
class Report;

// The preview window of a report: zoom, pages, print, and "Save as PDF...".
// It keeps the report alive while it is open and closes itself; its
// objectName is the report's name, the save action's is "actSaveAsPdf".
QPrintPreviewDialog *Show_Report(const std::shared_ptr<Report> &report, QWidget *parent = nullptr);

// Sends the report to the default printer with no dialog. With no printer
// installed the box says so and offers to save a PDF instead. True when the
// sheet went to a printer or into a PDF file.
bool Print_Report(const Report &report);

// Print jobs of this run still being handed to the printer.
int Pending_Jobs();

// Asks where to save, then writes the PDF. True when a file was written.
bool Save_Report_As_Pdf(const Report &report, QWidget *parent = nullptr);
