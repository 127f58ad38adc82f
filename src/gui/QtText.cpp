#include "gui/QtText.h"

#include <QStringDecoder>

namespace {

// The Windows-1252 letters of 0x80..0x9F; the rest of the high half is Latin-1.
constexpr char16_t cp1252High[32] = {
    0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

QString FromWindows1252(std::string_view bytes) {
    QString out;
    out.reserve(static_cast<qsizetype>(bytes.size()));
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        out += byte >= 0x80 && byte < 0xA0 ? QChar(cp1252High[byte - 0x80]) : QChar(byte);
    }
    return out;
}

} // namespace

QString ToQString(const AnsiString& text) {
    const std::string_view bytes = text.view();
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString decoded =
        utf8.decode(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    return utf8.hasError() ? FromWindows1252(bytes) : decoded;
}

AnsiString FromQString(const QString& text) {
    const QByteArray bytes = text.toUtf8();
    return AnsiString(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}
