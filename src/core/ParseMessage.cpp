#include "core/ParseMessage.h"

ParseMessage::ParseMessage() = default;

ParseMessage::ParseMessage(const ParseMessage& other) = default;

ParseMessage& ParseMessage::operator=(const ParseMessage& other) = default;

ParseMessage::ParseMessage(ParseMessage&& other) noexcept = default;

ParseMessage& ParseMessage::operator=(ParseMessage&& other) noexcept = default;

ParseMessage::~ParseMessage() = default;
