#pragma once

#include "commands/CurveCommand.h"
#include "commands/CurveContents.h"

#include <QString>

#include <memory>

class CurveEditor;

namespace curve_editor {

class CommandContext;
class CommandSelectPoints;

/// Puts the content of a curve file into every curve being edited. A file of an expression alone
/// leaves them without keys, one of a spline without expression.
class CommandLoadCurve : public CurveCommand
{
public:
    /// A name that ends in ".xml", in any case, is read as an XML curve file, any other as the
    /// older one.
    CommandLoadCurve(CurveEditor* editor, const QString& fileName);
    CommandLoadCurve(CommandContext& context, const QString& fileName);
    ~CommandLoadCurve() override;

    /// False, and no curve has changed, when the file cannot be read or no curve is being edited.
    bool execute() override;
    void undo() override;
    void redo() override;
    ZK_String getDescription() override;

private:
    bool readContents();

    CommandContext* context; ///< not owned
    QString fileName;
    CurveContents contents;
    std::unique_ptr<CommandSelectPoints> selectCommand; ///< null until execute
};

} // namespace curve_editor
