#include "platform/qt/qt_pictures.h"

#include "base/runtime_failure.h"
#include "platform/qt/native_paths.h"
#include "platform/qt/text_streams.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <cerrno>
#include <cmath>

namespace gatehouse {

namespace {

constexpr std::size_t kLargestFile = std::size_t{64} << 20;
constexpr int kLongestSide = 16384;
/// A JPEG file of a few bytes makes its reader take several bytes for each point that it claims.
constexpr long long kMostPoints = 1LL << 24;
/// Each scan of a progressive JPEG file goes over all points, whatever few bytes it has itself.
constexpr int kMostScans = 100;
constexpr int kLongestShown = 2048;
constexpr double kTallestPng = 16384;
constexpr int kDotsPerMetre = 2835;
constexpr QRgb kOpaque = 0xFF000000;

std::string sizeText(int width, int height) {
    return std::to_string(width) + " x " + std::to_string(height) + " points";
}

std::string readFile(const std::string& path) {
    const auto native = resolveExisting(path);
    if (!native) failFile("Can't open", path, ENOENT);
    std::string bytes = FileReader(*native, path).readBytes(kLargestFile + 1);
    if (bytes.size() > kLargestFile) throw RuntimeFailure("Can't open " + path + ": it is larger than 64 MiB");
    return bytes;
}

/// A number in the header of a BMP file, the lowest byte first. What lies beyond the end counts as 0.
std::uint64_t numberAt(std::string_view bytes, std::size_t place, std::size_t count) {
    const std::string_view taken = bytes.substr(std::min(place, bytes.size()), count);
    std::uint64_t value = 0;
    for (auto byte = taken.rbegin(); byte != taken.rend(); ++byte)
        value = value << 8 | static_cast<unsigned char>(*byte);
    return value;
}

/// True when a BMP file is long enough for its points. The toolkit shows a shorter one too. A packed one may be of any
/// length.
bool holdsPoints(std::string_view bytes, const QSize& size) {
    constexpr std::uint64_t kFileHeader = 14;
    constexpr std::uint64_t kOldHeader = 12;
    constexpr std::uint64_t kPacked8 = 1;
    constexpr std::uint64_t kPacked4 = 2;
    const std::uint64_t header = numberAt(bytes, 14, 4);
    const bool old = header == kOldHeader;
    const std::uint64_t packing = old ? 0 : numberAt(bytes, 30, 4);
    if (packing == kPacked8 || packing == kPacked4) return true;

    const std::uint64_t bits = numberAt(bytes, old ? 24 : 28, 2);
    const std::uint64_t line = (static_cast<std::uint64_t>(size.width()) * bits + 31) / 32 * 4;
    const std::uint64_t start = std::max(numberAt(bytes, 10, 4), kFileHeader + header);
    return start + line * static_cast<std::uint64_t>(size.height()) <= bytes.size();
}

/// The number of scans in a JPEG file: within the points no two bytes read like that marker.
int scansIn(std::string_view bytes) {
    constexpr std::string_view kStartOfScan = "\xFF\xDA";
    int count = 0;
    for (auto at = bytes.find(kStartOfScan); at != std::string_view::npos; at = bytes.find(kStartOfScan, at + 1))
        ++count;
    return count;
}

/// Why a picture can't be read; empty if nothing is known against it.
std::string faultOf(const QImageReader& reader, std::string_view bytes) {
    const QByteArray format = reader.format();
    if (format != "jpeg" && format != "bmp") return "it is no JPEG or BMP picture";
    const QSize size = reader.size();
    if (size.isEmpty()) return "its size is not known";
    const int longer = std::max(size.width(), size.height());
    if (longer > kLongestSide || static_cast<long long>(size.width()) * size.height() > kMostPoints)
        return "it claims " + sizeText(size.width(), size.height()) + ", which is too large";
    if (format == "jpeg" && scansIn(bytes) > kMostScans) return "it is drawn in too many scans";
    if (format == "bmp" && !holdsPoints(bytes, size)) return "its data end too early";
    return "";
}

/// What a picture is read into. A packed BMP file may leave points out, and the reader leaves those as they were: they
/// have the file's first colour, not what lay in memory.
QImage blankFor(const QImageReader& reader) {
    if (reader.format() != "bmp") return {};
    QImage blank(reader.size(), reader.imageFormat());
    blank.fill(0U);
    return blank;
}

/// The picture as it is shown; null for one that is damaged.
QImage readImage(QImageReader& reader) {
    QImage image = blankFor(reader);
    const QSize size = reader.size();
    if (std::max(size.width(), size.height()) > kLongestShown)
        reader.setScaledSize(size.scaled(kLongestShown, kLongestShown, Qt::KeepAspectRatio).expandedTo({1, 1}));
    return reader.read(&image) ? image.convertToFormat(QImage::Format_ARGB32) : QImage();
}

Picture pictureOf(const QImage& image) {
    Picture picture{image.width(), image.height(), {}};
    picture.argb.reserve(static_cast<std::size_t>(image.width()) * static_cast<std::size_t>(image.height()));
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        picture.argb.insert(picture.argb.end(), line, line + image.width());
    }
    return picture;
}

/// The picture less its transparency, in the picture's own memory, since it may be large; null for one whose points are
/// not as many as its sides say.
QImage opaqueImage(Picture& picture) {
    const auto points = static_cast<long long>(picture.argb.size());
    if (picture.width < 1 || points != static_cast<long long>(picture.width) * picture.height) return {};
    for (std::uint32_t& point : picture.argb) point |= kOpaque;
    QImage image(reinterpret_cast<uchar*>(picture.argb.data()), picture.width, picture.height,
                 static_cast<qsizetype>(picture.width) * 4, QImage::Format_RGB32);
    // Otherwise the screen's own resolution would go into a file.
    image.setDotsPerMeterX(kDotsPerMetre);
    image.setDotsPerMeterY(kDotsPerMetre);
    return image;
}

}  // namespace

Picture QtPictures::open(const std::string& path) {
    const std::string bytes = readFile(path);
    QByteArray view = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&view);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(false);
    const std::string fault = faultOf(reader, bytes);
    if (!fault.empty()) throw RuntimeFailure("Can't open " + path + ": " + fault);
    const QImage image = readImage(reader);
    if (image.isNull()) throw RuntimeFailure("Can't open " + path + ": its data are damaged");
    return pictureOf(image);
}

std::string QtPictures::bmp(Picture picture) {
    QImage image = opaqueImage(picture);
    QByteArray bytes;
    bytes.reserve(image.sizeInBytes());  // a file has three bytes for each four of the image
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (image.isNull() || !image.save(&buffer, "BMP"))
        throw RuntimeFailure("Can't make a picture of " + sizeText(picture.width, picture.height));
    image = {};
    picture = {};  // before there is a copy of the file
    return bytes.toStdString();
}

std::string QtPictures::png(const std::string& svg, int width) {
    QSvgRenderer drawing(QByteArray::fromStdString(svg));
    const QSizeF size = drawing.viewBoxF().size();
    const double height = size.isEmpty() ? 0 : size.height() / size.width() * width;
    if (!drawing.isValid() || height < 1 || height > kTallestPng)
        throw RuntimeFailure("Can't make a picture of this size");
    QImage image(width, static_cast<int>(std::ceil(height)), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    drawing.render(&painter);
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "PNG")) throw RuntimeFailure("Can't make a picture of this drawing");
    return bytes.toStdString();
}

}  // namespace gatehouse
