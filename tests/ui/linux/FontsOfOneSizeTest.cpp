#include "support/Support.h"
#include "ui/support/FontCall.h"
#include "ui/toolkit/Strings.h"

#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QPrinter>

// Elsewhere Qt takes every font for one of any size where it has no display.

namespace tavel::test {

namespace {

// A font of one letter and one size.
const char* const dots = R"(STARTFONT 2.1
FONT -tavel-dots-medium-r-normal--16-160-75-75-c-80-iso10646-1
SIZE 16 75 75
FONTBOUNDINGBOX 8 8 0 0
STARTPROPERTIES 3
FAMILY_NAME "Dots"
FONT_ASCENT 8
FONT_DESCENT 0
ENDPROPERTIES
CHARS 1
STARTCHAR A
ENCODING 65
SWIDTH 500 0
DWIDTH 8 0
BBX 8 8 0 0
BITMAP
AA
55
AA
55
AA
55
AA
55
ENDCHAR
ENDFONT
)";

}  // namespace

TEST(FontsOfOneSize, are_left_out_where_the_flags_or_a_printer_ask_for_any_size) {
    const TempFolder folder;
    folder.Write("dots.bdf", dots);
    const int id = QFontDatabase::addApplicationFont(ToQString(folder.HostPath("dots.bdf")));
    ASSERT_EQ(QFontDatabase::applicationFontFamilies(id), QStringList(QStringLiteral("Dots")));
    const QPrinter printer;
    const auto isListed = [](Long flags, const QPrinter* PrinterDC) {
        FontCall call;
        call.flags = flags;
        call.PrinterDC = PrinterDC;
        const QStringList names = FamiliesOf(call);
        EXPECT_TRUE(names.contains(QStringLiteral("DejaVu Sans")));
        return names.contains(QStringLiteral("Dots"));
    };
    EXPECT_TRUE(isListed(0, nullptr));
    EXPECT_FALSE(isListed(0x20000, nullptr));
    EXPECT_FALSE(isListed(0x40000, nullptr));
    EXPECT_FALSE(isListed(0, &printer));
    QFontDatabase::removeApplicationFont(id);
}

}  // namespace tavel::test
