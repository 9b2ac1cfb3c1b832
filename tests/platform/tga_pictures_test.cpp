#include "platform/qt/qt_pictures.h"
#include "platform/tga.h"

#include "base/runtime_failure.h"
#include "scratch_folder.h"

#include <gtest/gtest.h>

#include <QImage>

#include <malloc.h>

namespace gatehouse {
namespace {

using Points = std::vector<std::uint32_t>;

std::string bytesOf(const std::vector<int>& bytes) { return std::string(bytes.begin(), bytes.end()); }

struct Tga {
    int kind = 2, width = 3, height = 2, bits = 24, flags = 0x20;
    std::string body = "";
    int mapKind = 0, mapLength = 0, mapBits = 0, idLength = 0;

    std::string file() const {
        return bytesOf({idLength, mapKind, kind, 0, 0, mapLength, 0, mapBits, 0, 0, 0, 0, width & 0xFF, width >> 8,
                        height & 0xFF, height >> 8, bits, flags}) + body;
    }
};

template <class Call>
void expectFailure(Call call, const std::string& reason) {
    try {
        call();
        ADD_FAILURE() << "not refused, though " << reason;
    } catch (const RuntimeFailure& failure) {
        EXPECT_NE(std::string(failure.what()).find(reason), std::string::npos) << failure.what();
    }
}

const std::string kPlain = "aaabbbcccdddeeefff";
const Points kPoints{0xFF616161, 0xFF626262, 0xFF636363, 0xFF646464, 0xFF656565, 0xFF666666};
const Tga kRuns{.kind = 10, .width = 2, .height = 3, .body = "\x80" "aaa" "\x81" "bcd" "\x02" "eeefffggg"};
const std::string kFourRuns = "\xFF" "abc" "\xFF" "abc" "\xFF" "abc" "\xFF" "abc";

TEST(TgaTest, ReadsEachKind) {
    const std::vector<std::pair<Tga, Points>> cases{
        {{.body = kPlain + "a footer"}, kPoints},
        {{.flags = 0x00, .body = "dddeeefffaaabbbccc"}, kPoints},
        {{.flags = 0x30, .body = "cccbbbaaafffeeeddd"}, kPoints},
        {{.flags = 0x10, .body = "fffeeedddcccbbbaaa"}, kPoints},
        {{.body = "my id" "123456" + kPlain, .mapKind = 1, .mapLength = 3, .mapBits = 15, .idLength = 5}, kPoints},
        {{.body = kPlain, .mapLength = 3, .mapBits = 24}, kPoints},
        {{.width = 1, .bits = 32, .flags = 0x28, .body = "aaa\1bbb\2"}, {0x01616161, 0x02626262}},
        {{.width = 1, .bits = 32, .body = "aaa\1bbb\2"}, {0x01616161, 0x02626262}},
        {kRuns, {0xFF616161, 0xFF646362, 0xFF646362, 0xFF656565, 0xFF666666, 0xFF676767}},
        {{.kind = 10, .width = 1, .bits = 32, .flags = 0, .body = "\1" "abcdefgh"}, {0x68676665, 0x64636261}},
        {{.kind = 10, .width = 512, .height = 1, .body = kFourRuns}, Points(512, 0xFF636261)},
        {{.width = 1, .height = 4096, .body = std::string(3 * 4096, 'a')}, Points(4096, 0xFF616161)}};
    for (const auto& [tga, points] : cases)
        EXPECT_EQ(decodeTga(tga.file()), (Picture{tga.width, tga.height, points})) << tga.body;
}

TEST(TgaTest, RefusesWhatIsNoSuchPicture) {
    std::vector<std::pair<Tga, std::string>> cases{
        {{.bits = 16, .body = kPlain}, "points of 16 bits"},
        {{.body = kPlain, .mapKind = 2}, "a colour map of kind 2"},
        {{.flags = 0x60, .body = kPlain}, "interleaved"},
        {{.width = 0, .height = 0}, "claims 0 x 0 points"},
        {{.width = 5000, .height = 5000}, "claims 5000 x 5000 points"},
        {{.width = 1, .height = 4097, .body = std::string(3 * 4097, 'a')}, "claims 1 x 4097 points"},
        {{.height = 3, .body = kPlain}, "too early"},
        {{.body = kPlain, .idLength = 1}, "too early"},
        {{.body = kPlain, .mapKind = 1, .mapLength = 1, .mapBits = 1}, "too early"},
        {{.kind = 10, .width = 513, .height = 1, .body = kFourRuns}, "too early"},
        {{.kind = 10, .width = 1, .height = 1, .body = "\x81" "aaa"}, "a run reaches beyond the picture's end"},
        {{.kind = 10, .width = 2, .height = 1, .body = "\x80" "aaa" "\x01" "bbbccc"}, "a run reaches beyond"}};
    for (const int kind : {0, 1, 3, 9, 11})
        cases.push_back({{.kind = kind}, "a TGA picture of kind " + std::to_string(kind) + " is not known"});
    for (const auto& row : cases) expectFailure([&] { decodeTga(row.first.file()); }, row.second);
    const std::string whole = kRuns.file();
    for (std::size_t size = 0; size < whole.size(); ++size)
        expectFailure([&] { decodeTga(whole.substr(0, size)); }, "the picture's data end too early");
}

TEST(PicturesTest, DrawsAnSvgOnWhiteAndNothingElse) {
    QtPictures pictures;
    const std::string head = "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 10 5'>";
    const QImage drawn = QImage::fromData(
        QByteArray::fromStdString(pictures.png(head + "<rect width='5' height='5' fill='#00f'/></svg>", 40)), "png");
    EXPECT_TRUE(drawn.size() == QSize(40, 20) && drawn.pixel(5, 5) == 0xFF0000FF && drawn.pixel(35, 5) == 0xFFFFFFFF);
    for (const std::string& none : {std::string(), std::string("no drawing"), head,
                                    std::string("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 1 9000'/>")})
        EXPECT_THROW(pictures.png(none, 40), RuntimeFailure) << none;
}

TEST(PicturesTest, OpensItsOwnFormatsAlone) {
    const testing::ScratchFolder scratch;
    QtPictures pictures;
    const auto open = [&](const std::string& name) { return pictures.open(scratch.path(name)); };
    const auto place = [&](const char* name) { return QString::fromStdString(scratch.native(name)); };
    const std::string bmp =
        pictures.bmp({3, 2, {0x00616161, 0x80626262, 0xFF636363, 0x01646464, 0xFE656565, 0x00666666}});
    EXPECT_EQ(bmp.substr(38, 4), bytesOf({0x13, 0x0B, 0, 0})) << "72 dots an inch, whatever the screen has";
    scratch.put("Shots/Own.BMP", bmp);
    EXPECT_EQ(open("shots\\own.bmp"), (Picture{3, 2, kPoints}));
    QImage wide(3000, 1000, QImage::Format_RGB32);
    wide.fill(0xFF808080);
    wide.copy(0, 0, 40, 20).save(place("jpeg.bmp"), "jpeg");
    EXPECT_EQ(open("jpeg.bmp"), (Picture{40, 20, Points(800, 0xFF808080)}));
    for (const char* format : {"jpeg", "bmp"}) {
        wide.save(place("wide"), format);
        EXPECT_EQ(open("wide"), (Picture{2048, 682, Points(2048 * 682, 0xFF808080)})) << format;
    }

    // A packed file of 8 x 8 points that gives none of them shows its first colour, and nothing of what is in memory.
    scratch.put("packed", "BM" + bytesOf({0, 0, 0, 0, 0, 0, 0, 0, 58, 0, 0, 0, 40, 0, 0, 0, 8, 0, 0, 0, 8, 0, 0, 0, 1,
                                          0, 8, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0,
                                          0, 3, 2, 1, 0, 0, 1}));
    ::mallopt(M_PERTURB, 0x55);
    EXPECT_EQ(open("packed"), (Picture{8, 8, Points(64, 0xFF010203)}));
    ::mallopt(M_PERTURB, 0);

    scratch.put("text.jpg", "a text");
    wide.save(place("png.jpg"), "png");
    std::string scans = scratch.content("jpeg.bmp");
    for (int i = 0; i < 100; ++i) scans += "\xFF\xDA";
    scratch.put("scans.jpg", scans);
    scratch.put("cut.bmp", bmp.substr(0, bmp.size() - 1));
    scratch.put("long.bmp", bmp);
    std::filesystem::resize_file(scratch.native("long.bmp"), (64 << 20) + 1);
    scratch.put("wide.bmp", std::string(bmp).replace(18, 2, bytesOf({0x01, 0x40})));
    const std::vector<std::pair<std::string, std::string>> refused{
        {"text.jpg", "it is no JPEG or BMP picture"}, {"png.jpg", "it is no JPEG or BMP picture"},
        {"missing.jpg", "No such file"}, {"cut.bmp", "its data end too early"}, {"wide.bmp", "it claims 16385 x 2 "},
        {"long.bmp", "it is larger than 64 MiB"}, {"scans.jpg", "it is drawn in too many scans"}};
    for (const auto& row : refused)
        expectFailure([&] { open(row.first); }, "Can't open " + scratch.path(row.first) + ": " + row.second);
    expectFailure([&] { pictures.bmp({2, 2, {1, 2, 3}}); }, "2 x 2 points");
}

}  // namespace
}  // namespace gatehouse
