#include "files/DeviceStreamBuffer.h"

#include <QIODevice>

namespace curve_files {

DeviceStreamBuffer::DeviceStreamBuffer(QIODevice& target)
    : device(target)
{}

DeviceStreamBuffer::int_type DeviceStreamBuffer::overflow(int_type character)
{
    if (traits_type::eq_int_type(character, traits_type::eof())) {
        return traits_type::not_eof(character);
    }
    return device.putChar(traits_type::to_char_type(character)) ? character : traits_type::eof();
}

std::streamsize DeviceStreamBuffer::xsputn(const char* text, std::streamsize length)
{
    const qint64 written = device.write(text, length);
    return written < 0 ? 0 : written;
}

DeviceStreamBuffer::int_type DeviceStreamBuffer::underflow()
{
    blockPlace = place();
    setg(nullptr, nullptr, nullptr);
    const qint64 length = device.read(block.data(), static_cast<qint64>(block.size()));
    if (length <= 0) {
        return traits_type::eof();
    }
    setg(block.data(), block.data(), block.data() + length);
    return traits_type::to_int_type(*gptr());
}

StreamPlace DeviceStreamBuffer::place() const
{
    StreamPlace found = blockPlace;
    for (const char* byte = eback(); byte != gptr(); ++byte) {
        ++found.column;
        if (*byte == '\n') {
            ++found.line;
            found.column = 1;
        }
    }
    return found;
}

} // namespace curve_files
