#include "language/guard_grammar.h"

#include <cstddef>

namespace {

// A right side has at most six symbols.
constexpr int maxSymbols = 6;

struct RuleRow {
    GuardRule rule;
    GuardSymbol symbols[maxSymbols];
};

using Semantics = GuardRPNSemantics;

// The order of the rows is part of the grammar: where two rules may go on from one place, the earlier is tried first,
// so a rule that another begins with stands behind it.
// clang-format off
constexpr RuleRow rows[] = {
    {{nullptr,                          3, ValueSymbol},       {OpenSymbol, ExpressionSymbol, CloseSymbol}},
    {{&Semantics::NamedWithArgument,    2, ItemSymbol},        {NameSymbol, ValueSymbol}},
    {{&Semantics::NamedWithArgument,    4, ItemSymbol},        {NameSymbol, OpenSymbol, ExpressionSymbol, CloseSymbol}},
    {{&Semantics::ValueItem,            1, ItemSymbol},        {ValueSymbol}},
    {{&Semantics::NamedAlone,           1, ItemSymbol},        {NameSymbol}},
    {{&Semantics::Whose,                3, ItemSymbol},        {ItemSymbol, WhoseSymbol, ValueSymbol}},
    {{&Semantics::Of,                   3, OfChainSymbol},     {ItemSymbol, OfSymbol, OfChainSymbol}},
    {{&Semantics::NoOf,                 1, OfChainSymbol},     {ItemSymbol}},
    {{nullptr,                          1, CastSymbol},        {OfChainSymbol}},
    {{&Semantics::Cast,                 3, CastSymbol},        {CastSymbol, AsSymbol, NameSymbol}},
    {{nullptr,                          1, UnarySymbol},       {CastSymbol}},
    {{&Semantics::Exists,               2, UnarySymbol},       {ExistsSymbol, UnarySymbol}},
    {{&Semantics::ExistsNo,             2, UnarySymbol},       {ExistsNoSymbol, UnarySymbol}},
    {{&Semantics::Not,                  2, UnarySymbol},       {NotSymbol, UnarySymbol}},
    {{&Semantics::Negate,               2, UnarySymbol},       {MinusSymbol, UnarySymbol}},
    {{nullptr,                          1, RangeSymbol},       {UnarySymbol}},
    {{&Semantics::Bar,                  3, RangeSymbol},       {RangeSymbol, BarSymbol, UnarySymbol}},
    {{nullptr,                          1, Product0Symbol},    {RangeSymbol}},
    {{nullptr,                          1, ProductSymbol},     {Product0Symbol}},
    {{&Semantics::BinaryOperator,       3, ProductSymbol},     {ProductSymbol, MultiplicativeSymbol, UnarySymbol}},
    {{nullptr,                          1, Sum0Symbol},        {ProductSymbol}},
    {{nullptr,                          1, SumSymbol},         {Sum0Symbol}},
    {{&Semantics::BinaryOperator,       3, SumSymbol},         {SumSymbol, AdditiveSymbol, Sum0Symbol}},
    {{&Semantics::Subtract,             3, SumSymbol},         {SumSymbol, MinusSymbol, Sum0Symbol}},
    {{nullptr,                          1, Relation0Symbol},   {SumSymbol}},
    {{&Semantics::BinaryOperator,       3, RelationSymbol},    {Relation0Symbol, RelationalSymbol, Relation0Symbol}},
    {{nullptr,                          1, RelationSymbol},    {Relation0Symbol}},
    {{nullptr,                          1, ConjunctionSymbol}, {RelationSymbol}},
    {{&Semantics::And,                  3, ConjunctionSymbol}, {ConjunctionSymbol, AndSymbol, RelationSymbol}},
    {{nullptr,                          1, Disjunction0Symbol}, {ConjunctionSymbol}},
    {{nullptr,                          1, DisjunctionSymbol}, {Disjunction0Symbol}},
    {{&Semantics::Or,                   3, DisjunctionSymbol}, {DisjunctionSymbol, OrSymbol, Disjunction0Symbol}},
    {{nullptr,                          1, ElementSymbol},     {DisjunctionSymbol}},
    {{nullptr,                          2, TupleHeadSymbol},   {ElementSymbol, CommaSymbol}},
    {{nullptr,                          1, Element1Symbol},    {ElementSymbol}},
    {{&Semantics::LastTupleElement,     2, TupleSymbol},       {TupleHeadSymbol, Element1Symbol}},
    {{&Semantics::TupleElement,         2, TupleSymbol},       {TupleHeadSymbol, TupleSymbol}},
    {{nullptr,                          1, ListItemSymbol},    {Element1Symbol}},
    {{nullptr,                          1, ListItemSymbol},    {TupleSymbol}},
    {{nullptr,                          1, ListSymbol},        {ListItemSymbol}},
    {{&Semantics::Collection,           3, ListSymbol},        {ListSymbol, SemicolonSymbol, ListItemSymbol}},
    {{nullptr,                          1, ExpressionSymbol},  {ListSymbol}},
    {{&Semantics::If,                   6, ExpressionSymbol},  {IfSymbol, ExpressionSymbol, ThenSymbol, ExpressionSymbol, ElseSymbol, ExpressionSymbol}},
    {{&Semantics::Accept,               1, EndSymbol},         {ExpressionSymbol}},
};
// clang-format on
static_assert(std::size(rows) == 44);

// A rule needs no more nodes than it has symbols: one for each symbol behind the first, and the terminal one.
constexpr size_t NodeCount() {
    size_t count = 0;
    for (const RuleRow& row : rows) {
        count += static_cast<size_t>(row.rule.symbolCount);
    }
    return count;
}

class Tree {
public:
    Tree() {
        for (const RuleRow& row : rows) {
            Insert(row);
        }
    }

    const GuardRootTable& Roots() const { return roots_; }

private:
    // The node itself has no way to its list's end, so the links are kept as pointers to where the next node goes.
    using Link = const RuleNode**;

    void Insert(const RuleRow& row) {
        Link list = &roots_[row.symbols[0]];
        for (int i = 1; i < row.rule.symbolCount; ++i) {
            list = &Find(list, row.symbols[i], row.rule)->next;
        }
        Append(list, EndSymbol, row.rule);
    }

    // The node of the list that awaits `symbol`; a new one at its end if there is none.
    RuleNode* Find(Link list, GuardSymbol symbol, const GuardRule& rule) {
        for (const RuleNode* node = *list; node != nullptr; node = node->alternative) {
            if (node->symbol == symbol) {
                return &nodes_[static_cast<size_t>(node - nodes_)];
            }
        }
        return Append(list, symbol, rule);
    }

    RuleNode* Append(Link list, GuardSymbol symbol, const GuardRule& rule) {
        while (*list != nullptr) {
            list = &nodes_[static_cast<size_t>(*list - nodes_)].alternative;
        }
        RuleNode& node = nodes_[used_++];
        node = {symbol, nullptr, nullptr, &rule};
        *list = &node;
        return &node;
    }

    RuleNode nodes_[NodeCount()];
    size_t used_ = 0;
    GuardRootTable roots_{};
};

}  // namespace

const GuardRootTable& GuardRoots() {
    static const Tree tree;
    return tree.Roots();
}
