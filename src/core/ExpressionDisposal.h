#pragma once

#include "zk_curve_core_export.h"

class FunctionFloatBase;

/// Frees the trees of expressions that have left their slot. While something is evaluated a tree is
/// kept until that is over: a refresh function may take away the very expression that called it.
/// The editor frees all trees so, and a host may. For the user-interface thread, as all evaluation
/// of trees is.
class ZK_CURVE_CORE_EXPORT ExpressionDisposal
{
public:
    /// Takes over the tree, which may be null.
    static void take(FunctionFloatBase* tree);

    /// Frees what was kept, unless something is still evaluated.
    static void freeKept();
};
