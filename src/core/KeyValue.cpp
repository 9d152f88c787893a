#include "core/KeyValue.h"

#include "core/ParserKeyEntry.h"
#include "core/Truncate.h"

double readKeyValue(const FunctionParserBase::keyStruct* key)
{
    if (!key) {
        return 0.0;
    }
    FunctionParserBase::instance()->refreshKey(key);
    return ParserKeyEntry::stored(key);
}

void writeKeyValue(FunctionParserBase::keyStruct* key, double value)
{
    if (!key || !key->value) {
        return;
    }
    switch (key->kind) {
    case 0:
        *static_cast<bool*>(key->value) = value != 0.0;
        break;
    case 1:
        *static_cast<int*>(key->value) = truncateToInt(value);
        break;
    case 2:
        *static_cast<float*>(key->value) = static_cast<float>(value);
        break;
    case 3:
        *static_cast<double*>(key->value) = value;
        break;
    default:
        break;
    }
}
