#include "reports/report_tags.h"
#include "base/messages.h"
#include "base/runtime_error.h"

using namespace Qt::StringLiterals;

namespace {

bool hasColor(const QString& color)
{
    return color != u"0"_s;
}

// The opening of a font: its size, and its colour unless the colour is "0".
QString fontOpening(int16_t size, const QString& color)
{
    QString text = u"<FONT size = '"_s + QString::number(size) + u"'"_s;
    if (hasColor(color))
        text += u" color = '"_s + color + u"'>"_s;
    else
        text += u">"_s;
    return text;
}

QString cellText(const QString& text)
{
    return text.isEmpty() ? u"&nbsp;"_s : text;
}

// Four digits of a number: the 16-bit sum with 10000, from its second character on.
QString fourDigits(int16_t number)
{
    const int16_t sum = checkedNarrow<int16_t>(static_cast<int32_t>(number) + 10000);
    return QString::number(sum).mid(1, 4);
}

} // namespace

QString styleBlock(const QString& linkColor, const QString& visitedColor, const QString& hoverColor)
{
    QString text = u"<STYLE>"_s;
    if (hasColor(linkColor))
        text += u"A {color: '"_s + linkColor + u"'}"_s;
    if (hasColor(visitedColor))
        text += u"A:visited {color: '"_s + visitedColor + u"'}"_s;
    if (hasColor(hoverColor))
        text += u"A:hover {color: '"_s + hoverColor + u"'}"_s;
    return text + u"</STYLE>"_s;
}

QString bodyTag(const QString& backColor, const QString& backgroundImage)
{
    QString text = u"<BODY"_s;
    if (hasColor(backColor))
        text += u" bgcolor = '"_s + backColor + u"'"_s;
    if (!backgroundImage.isEmpty())
        text += u" background='"_s + backgroundImage + u"'"_s;
    return text + u">"_s;
}

QString tableRowTag(const QString& backColor)
{
    QString text = u"<TR"_s;
    if (hasColor(backColor))
        text += u" bgcolor = '"_s + backColor + u"'"_s;
    return text + u">"_s;
}

QString imageParagraph(const QString& image, const QString& align)
{
    if (image.isEmpty())
        return {};
    return u"<P align = '"_s + align + u"'>"_s + u"<img border='0' src='"_s + image + u"'>"_s + u"</P>"_s;
}

QString tableTag(int16_t border, int16_t cellPadding, int16_t cellSpacing)
{
    return u"<TABLE align=center "_s + u" border = "_s + QString::number(border) + u" cellspacing = "_s +
           QString::number(cellSpacing) + u" cellpadding = "_s + QString::number(cellPadding) + u">"_s;
}

QString textParagraph(int16_t& size, const QString& color, const QString& text, const QString& align)
{
    if (size < 1)
        size = 1;
    return u"<P align = '"_s + align + u"'>"_s + fontOpening(size, color) + text + u" </FONT></P>"_s;
}

QString headerCell(int16_t size, const QString& color, const QString& text, const QString& align, int16_t colspan,
                   const QString& nowrap)
{
    return u"<TH "_s + nowrap + u" colspan="_s + QString::number(colspan) + u" align = '"_s + align + u"'>"_s +
           fontOpening(size, color) + cellText(text) + u" </FONT></TH>"_s;
}

QString dataCell(int16_t size, const QString& color, const QString& text, const QString& align,
                 const QString& colspan)
{
    return u"<TD colspan="_s + colspan + u"  align = '"_s + align + u"'>"_s + fontOpening(size, color) +
           cellText(text) + u" </FONT></TD>"_s;
}

QString reportFileName(const QString& reportId, int16_t firstNumber, std::optional<int16_t> secondNumber)
{
    try {
        return (reportId + fourDigits(firstNumber) + fourDigits(secondNumber.value_or(0)) + u".HTML"_s).toLower();
    } catch (const cRuntimeError& error) {
        messageBox(u"Error generating report name - "_s + error.description(), u"Lapkeeper"_s, Icon::Critical);
        return {};
    }
}
