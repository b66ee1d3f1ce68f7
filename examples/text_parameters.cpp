// What the parameters of a text do, as a picture: a dot marks ptCenter, a frame GetRect.
#include "Board.h"

#include "text/ShapeText.h"

#include <QGuiApplication>
#include <QTextStream>

#include <algorithm>
#include <functional>
#include <memory>
#include <string_view>

namespace {

void SetLetters(SText& text, std::string_view letters)
{
    const size_t length = std::min(letters.size(), TEXT_BUFFER_SIZE - 1);
    std::copy_n(letters.data(), length, text.pText);
    text.pText[length] = '\0';
}

void SetFamily(SText& text, std::string_view family)
{
    const size_t length = std::min(family.size(), sizeof text.font.szFamily - 1);
    std::copy_n(family.data(), length, text.font.szFamily);
    text.font.szFamily[length] = '\0';
}

std::unique_ptr<CShapeText> NewText(std::string_view letters)
{
    auto shape = std::make_unique<CShapeText>();
    SText& text = *shape->GetTextP();
    SetLetters(text, letters);
    SetFamily(text, "Liberation Sans");
    text.font.dSize = 100; // pixels of the layout: large ones round letters less
    text.dScaleX = 0.06;   // millimetres per pixel: an em of 6 mm
    text.dScaleY = 0.06;   // kept for hosts, not used
    text.ptCenter = {18, 12};
    shape->UpdatePainterPath(); // after every change through GetTextP
    return shape;
}

using Change = std::function<void(SText&)>;

void Draw(Board& board, const QString& title, std::string_view letters, const Change& change)
{
    const auto shape = NewText(letters);
    change(*shape->GetTextP());
    shape->UpdatePainterPath();
    board.Next(title);
    QPainterPath frame;
    frame.addRect(shape->GetRect(false));
    board.Draw(frame, Qt::lightGray, 0.2);
    board.Draw(*shape->GetPath(false), Qt::black, 0.2);
    board.Dot(shape->GetTextP()->ptCenter, Qt::red, 0.5);
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv); // fonts need it
    if (argc != 2)
        return 2;
    Board board({44, 25}, 3, 12);
    const std::string_view lines = "Cut by\nlight";
    Draw(board, "as it is: lines to the left", lines, [](SText&) {});
    Draw(board, "nAlign: centre", lines, [](SText& text) { text.nAlign = ETEXTALIGNMENT_CENTER; });
    Draw(board, "nAlign: right", lines, [](SText& text) { text.nAlign = ETEXTALIGNMENT_RIGHT; });
    Draw(board, "dCharSpacing = 30", lines, [](SText& text) { text.dCharSpacing = 30; });
    Draw(board, "dLineSpacing = 60", lines, [](SText& text) { text.dLineSpacing = 60; });
    Draw(board, "bBold, bItalic, bUnderline", lines,
         [](SText& text) { text.font.bBold = text.font.bItalic = text.font.bUnderline = 1; });
    Draw(board, "dAngle = 30", lines, [](SText& text) { text.dAngle = 30; });
    Draw(board, "bMirrorX", lines, [](SText& text) { text.bMirrorX = 1; });
    Draw(board, "bMirrorY", lines, [](SText& text) { text.bMirrorY = 1; });
    Draw(board, "dScaleX = 0.1 (both directions)", lines, [](SText& text) { text.dScaleX = 0.1; });
    Draw(board, "bVerticalText: columns, leftwards", "AB\nCD", [](SText& text) { text.font.bVerticalText = 1; });
    Draw(board, "bColumnsLeftToRight", "AB\nCD",
         [](SText& text) { text.font.bVerticalText = text.font.bColumnsLeftToRight = 1; });

    const auto text = NewText("Tag");
    text->Rotate(90, {0, 0}, Qt::ZAxis); // a change of parameters: the text stays a text
    QTextStream(stdout) << "turned: dAngle " << text->GetTextP()->dAngle << ", centre "
                        << qRound(text->GetTextP()->ptCenter.x()) << ' ' << qRound(text->GetTextP()->ptCenter.y())
                        << '\n';
    return board.Save(argv[1]);
}
