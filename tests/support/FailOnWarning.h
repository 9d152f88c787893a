#pragma once

#include <QRegularExpression>
#include <QTest>

/// Makes every Qt warning that the running test did not announce with QTest::ignoreMessage fail
/// that test. Call it from init(). The one warning let through is the offscreen platform's own.
inline void failOnUnexpectedWarning()
{
    QTest::failOnWarning(
        QRegularExpression(QStringLiteral("^(?!This plugin does not support propagateSizeHints)")));
}
