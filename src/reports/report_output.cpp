#include "report_output.h"
#include "report.h"
#include "core/dialogs.h"
#include "core/doing.h"
#include "core/errors.h"
#include "core/globals.h"

#include <QAction>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QToolBar>

namespace {
int g_pending = 0;
}

int Pending_Jobs()
{
    return g_pending;
}

bool Save_Report_As_Pdf(const Report &report, QWidget *)
{
    QString path = Get_Save_File(QStringLiteral("Save as PDF"), Data_Dir + report.Title() + QStringLiteral(".pdf"),
                                 QStringLiteral("PDF files (*.pdf)"));
    if (path.isEmpty())
        return false;
    if (!path.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive))
        path += QStringLiteral(".pdf");
    Doing doing(QStringLiteral("Saving ") + report.Title() + QStringLiteral(" as ") + path);
    try {
        report.Render_Pdf(path);
    } catch (const AppError &e) {
        Msg_Box(Fault_Text(e.message()), vbExclamation, report.Title());
        return false;
    }
    return true;
}

QPrintPreviewDialog *Show_Report(const std::shared_ptr<Report> &report, QWidget *parent)
{
    auto *printer = new QPrinter(QPrinter::HighResolution);
    printer->setDocName(report->Title());
    auto *dialog = new QPrintPreviewDialog(printer, parent, Qt::Window);
    dialog->setObjectName(report->Name());
    dialog->setWindowTitle(report->Title());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setModal(false);
    QObject::connect(dialog, &QObject::destroyed, [printer] { delete printer; });
    QObject::connect(dialog, &QPrintPreviewDialog::paintRequested, dialog,
                     [report](QPrinter *p) { report->Render(p); });
    auto *save = new QAction(QStringLiteral("Save as PDF..."), dialog);
    save->setObjectName(QStringLiteral("actSaveAsPdf"));
    QObject::connect(save, &QAction::triggered, dialog, [report, dialog] { Save_Report_As_Pdf(*report, dialog); });
    if (QToolBar *bar = dialog->findChild<QToolBar *>()) {
        bar->addSeparator();
        bar->addAction(save);
    } else {
        dialog->addAction(save);
    }
    dialog->resize(900, 1000);
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
    return dialog;
}

bool Print_Report(const Report &report)
{
    const QPrinterInfo info = QPrinterInfo::defaultPrinter();
    if (info.isNull()) {
        if (Msg_Box(QStringLiteral("No printer is installed. Do you want to save the report as a PDF file instead?"),
                    vbYesNo + vbQuestion, report.Title())
            != vbYes)
            return false;
        return Save_Report_As_Pdf(report);
    }
    QPrinter printer(info, QPrinter::HighResolution);
    printer.setDocName(report.Title());
    ++g_pending;
    const int pages = report.Render(&printer);
    --g_pending;
    return pages > 0;
}
