#include "curves/DeviceStreamBuffer.h"

#include <QIODevice>

namespace curve_editor {

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

} // namespace curve_editor
