#pragma once

#include <QDir>
#include <QString>

class HostWindow;

/// Plays what a user would do with the host, chapter by chapter and step by step: each step prints
/// a line with the values before and after, checks that it did what it says, and leaves a picture
/// of the window.
class Demonstration
{
public:
    /// `window` stays the caller's; pictures and saved curves go into `path`.
    Demonstration(HostWindow& hostWindow, const QString& path);

    /// False as soon as a step did not do what it says.
    bool run();

private:
    HostWindow& window;
    const QDir folder;
};
