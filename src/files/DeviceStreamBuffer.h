#pragma once

#include "zk_curve_files_export.h"

#include <QtGlobal>

#include <array>
#include <streambuf>

class QIODevice;

namespace curve_files {

/// A place in a text; both count from 1, columns in bytes.
struct StreamPlace
{
    qint64 line = 1;
    qint64 column = 1;
};

/// Lets a stream of the standard library write to a device of the toolkit's, or read from it.
///
///     DeviceStreamBuffer buffer(file);
///     std::ostream stream(&buffer);
class ZK_CURVE_FILES_EXPORT DeviceStreamBuffer : public std::streambuf
{
public:
    /// The device is open for writing or reading, and not owned. More may be read from it than the
    /// stream gives out.
    explicit DeviceStreamBuffer(QIODevice& target);

    /// The place of what is read next, counted from where the reading began.
    StreamPlace place() const;

protected:
    int_type overflow(int_type character) override;
    std::streamsize xsputn(const char* text, std::streamsize length) override;
    int_type underflow() override;

private:
    static constexpr std::size_t blockLength = 16384;

    QIODevice& device;
    std::array<char, blockLength> block; // of what is read
    StreamPlace blockPlace;              // of its first byte
};

} // namespace curve_files
