#pragma once

#include "CurveState.h"

#include <QDir>
#include <QString>

struct DemoTools;

/// Curve files are loaded and saved by the editor's own entries, and a picture is laid behind the
/// curves.
class FilesChapter
{
public:
    explicit FilesChapter(DemoTools& demoTools);
    ~FilesChapter();
    FilesChapter(const FilesChapter&) = delete;
    FilesChapter& operator=(const FilesChapter&) = delete;

    bool run();

private:
    bool load();
    bool save();
    bool saveOlder();
    bool loadOlder();
    bool saveSeveral();
    bool layPicture();
    bool clearPicture();
    bool undoAll();

    bool answerDialog(const QString& entry, const QString& path);
    double brightness() const;

    DemoTools& tools;
    HostCurve& scale; ///< the store's
    HostCurve& hue;   ///< the store's
    /// For the files that the editor saves under a name in lower case, the folder's included.
    QDir lowerCaseFolder;
    const std::vector<CurveState> opened;
};
