#pragma once

#include "zk_curve_files_export.h"

#include <QString>

namespace curve_files {

/// How the reading, writing or checking of a curve file went.
struct ZK_CURVE_FILES_EXPORT CurveFileResult
{
    enum problems : int
    {
        none = 0,
        notOpened,     ///< the file cannot be read at all
        malformed,     ///< it is no XML document, or one that is beyond all use
        otherContent,  ///< it is XML, but no curve of a known version
        unknownName,   ///< a type or behaviour that nobody knows: `name`
        badKeys,       ///< the keys of an older file; type and expression have been read
        badExpression, ///< the expression does not parse; an unknown variable is `name`
        notWritten,    ///< the file or the device takes no more
        notWritable    ///< what is to be written could not be read back
    };

    problems problem = none;
    QString message; ///< what is wrong, without its place; empty when nothing is
    QString name;    ///< the unknown name, as the file has it; else empty
    qint64 line = 0; ///< from 1; 0 where there is no place
    /// From 1 in older files and in expressions; in XML the number of characters of the line that
    /// had been read.
    qint64 column = 0;

    explicit operator bool() const { return problem == none; }

    /// The message, with the place on a second line where there is one.
    QString text() const;
};

} // namespace curve_files
