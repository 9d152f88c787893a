#pragma once

#include <vector>

class FunctionFloatBase;
class FunctionFloatVariable;

/// The variables that an expression mentions, in the order of the text and each as often as it is
/// mentioned; none for null. The nodes belong to the expression.
std::vector<const FunctionFloatVariable*> variablesOf(const FunctionFloatBase* expression);
