#include "core/ParserVarMapper.h"

ParserVarMapper::~ParserVarMapper() = default;
