#pragma once

#include <streambuf>

class QIODevice;

namespace curve_editor {

/// Lets an output stream of the standard library write to a device of the toolkit's.
///
///     DeviceStreamBuffer buffer(file);
///     std::ostream stream(&buffer);
class DeviceStreamBuffer : public std::streambuf
{
public:
    /// The device is open for writing, and not owned.
    explicit DeviceStreamBuffer(QIODevice& target);

protected:
    int_type overflow(int_type character) override;
    std::streamsize xsputn(const char* text, std::streamsize length) override;

private:
    QIODevice& device;
};

} // namespace curve_editor
