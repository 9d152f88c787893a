#include "commands/CurveCommand.h"

namespace curve_editor {

CurveCommand::~CurveCommand() = default;

void CurveCommand::setDescription(const ZK_String& text)
{
    description = text;
}

} // namespace curve_editor
