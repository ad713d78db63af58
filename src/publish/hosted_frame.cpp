#include "hosted_frame.h"

#include "core/contacts.h"

namespace Hosted_Frame {

QString Head(const Site_Source &src)
{
    return QStringLiteral("<HTML><HEAD><TITLE>") + src.compName + QLatin1Char(' ') + src.compDate
        + QStringLiteral("</TITLE><META http-equiv=Content-Type content=text/html; charset=windows-1252>")
        + QStringLiteral("<META name=description content=\"%1\">").arg(QLatin1String(Contacts::Meta_Description))
        + QStringLiteral("<LINK href=default.css type=text/css rel=stylesheet>\r\n"
                         "<STYLE type=text/css>\r\n"
                         ".finalscore {FONT-WEIGHT: bold; FONT-SIZE: 14px; COLOR: #172693}\r\n"
                         ".winarrow {FONT-WEIGHT: bold; COLOR: #172693}\r\n"
                         ".no {FONT-WEIGHT: bold; COLOR: #f0f0f0}\r\n"
                         ".columnrow {FONT-WEIGHT: bold; BACKGROUND-COLOR: #d4d4dc}\r\n"
                         ".scoresrow {BACKGROUND-COLOR: #e8e8ea}\r\n"
                         ".highlight {FONT-WEIGHT: bold; COLOR: #001a79}\r\n"
                         ".redzone {COLOR: #b00000}\r\n"
                         ".playreview {FONT-SIZE: 11px}\r\n"
                         "</STYLE></HEAD>\r\n"
                         "<BODY text=#000000 link=#000a78 bgColor=#ffffff leftMargin=0 topMargin=0 marginheight=0 "
                         "marginwidth=0>\r\n"
                         "<DIV style=\"LEFT: -49px; POSITION: absolute; TOP: -49px; WIDTH: 1px; HEIGHT: 1px; "
                         "VISIBILITY: hidden\"></DIV><DIV style=\"LEFT: -50px; POSITION: absolute; TOP: -50px; "
                         "WIDTH: 1px; HEIGHT: 1px; VISIBILITY: hidden\"></DIV>\r\n"
                         "<TABLE cellSpacing=0 cellPadding=0 width=770 border=0><TR><TD>\r\n");
}

QString Heading_Open(const QString &text)
{
    return QStringLiteral("<TABLE width=100% border=0 cellPadding=4><TR><TD class=head2>") + text;
}

QString Heading(const QString &text)
{
    return Heading_Open(text) + QStringLiteral("</TD></TR></TABLE>\r\n");
}

QString Band_Table(const QString &band, const QStringList &columns, int span)
{
    QString out = QStringLiteral("<DIV class=spacer10>&nbsp;</DIV><TABLE width=100% border=0 cellSpacing=1 "
                                 "cellPadding=3><TR class=lnbg><TD class=bg0font colSpan=%1>%2</TD></TR>\r\n<TR>")
                      .arg(qMax(span, int(columns.size())))
                      .arg(band);
    if (columns.isEmpty())
        return out.chopped(4);
    for (const QString &c : columns)
        out += QStringLiteral("<TD class=columnrow>") + c + QStringLiteral("</TD>");
    return out + QStringLiteral("</TR>\r\n");
}

QString Row(const Site_Source &src, const QStringList &cells, const QString &link)
{
    QString out = QStringLiteral("<TR class=bg2>");
    for (const QString &c : cells) {
        const QString value = c + src.letters.hidden();
        out += QStringLiteral("<TD class=scorerow>")
            + (link.isEmpty() ? value : QStringLiteral("<a href=") + link + QLatin1Char('>') + value
                                            + QStringLiteral("</a>"))
            + QStringLiteral("</TD>");
    }
    return out + QStringLiteral("</TR>\r\n");
}

QString Footer(const QList<QPair<QString, QString>> &links)
{
    QString out = QStringLiteral("<br>Go To: ");
    for (int i = 0; i < links.size(); ++i)
        out += (i ? QStringLiteral(" | ") : QString()) + QStringLiteral("<a href=") + links[i].second
            + QLatin1Char('>') + links[i].first + QStringLiteral("</a>");
    return out
        + QStringLiteral("\r\n<DIV class=spacer10>&nbsp;</DIV><TABLE width=100% border=0 cellPadding=4><TR><TD "
                         "class=footerborder><SPAN class=ftr>%1</SPAN></TD></TR></TABLE>\r\n"
                         "</TD></TR></TABLE></BODY></HTML>")
              .arg(QLatin1String(Contacts::Publisher_Rights));
}

} // namespace Hosted_Frame
