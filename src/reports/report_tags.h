#pragma once
// The pieces every report page is made of. Each writer returns the text of one tag and writes
// nothing. A colour text "0" means that the report has no colour of its own there: the attribute
// is left out. Sizes and counts are printed as plain decimal numbers.
#include <QString>
#include <cstdint>
#include <optional>

// "<STYLE>" with the rules for links, visited links and hovered links whose colour is not "0".
QString styleBlock(const QString& linkColor, const QString& visitedColor, const QString& hoverColor);
// "<BODY>" with the back colour and the background image when given.
QString bodyTag(const QString& backColor, const QString& backgroundImage);
// "<TR>" with its back colour. Only "0" leaves the colour out: an empty text gives empty quotes.
QString tableRowTag(const QString& backColor);
// A paragraph that shows the image; empty when there is no image.
QString imageParagraph(const QString& image, const QString& align);
// "<TABLE>" centred, printed as border, spacing, padding.
QString tableTag(int16_t border, int16_t cellPadding, int16_t cellSpacing);
// A paragraph of text in a font. A size below 1 becomes 1, also in the caller's variable.
QString textParagraph(int16_t& size, const QString& color, const QString& text, const QString& align);
// A heading cell; nowrap is "nowrap" or empty. An empty text shows "&nbsp;".
QString headerCell(int16_t size, const QString& color, const QString& text, const QString& align, int16_t colspan,
                   const QString& nowrap);
// A data cell; colspan comes as text. An empty text shows "&nbsp;".
QString dataCell(int16_t size, const QString& color, const QString& text, const QString& align,
                 const QString& colspan);

// The file name of a report: the id, each number four digits wide (by adding 10000 and keeping
// the digits after the first), ".html", all in lower case: "LS", 1, 3 gives "ls00010003.html";
// -1 (nothing chosen) gives "999". A number whose sum overflows 16 bits shows "Error generating
// report name - Overflow" and gives an empty name.
QString reportFileName(const QString& reportId, int16_t firstNumber, std::optional<int16_t> secondNumber = {});
