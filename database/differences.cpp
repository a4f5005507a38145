#include "database/differences.h"

#include <algorithm>
#include <map>

#include "database/alignment.h"
#include "database/block_items.h"
#include "database/check_rows.h"
#include "files/read_fault.h"
#include "report/reporters.h"
#include "text/text.h"

namespace corvane {
namespace {

// ---- Reading -----------------------------------------------------------------------------------

// False, and reported, when it cannot be read.
bool ReadItems(const ModelPlace& model, BlockItems& block) {
    TextReader reader;
    std::string keyword;
    if (!RequireDatabaseText(reader, model.path) ||
        !RequireBlock(reader, model.path, model.place, keyword)) {
        return false;
    }
    block = ReadBlockItems(reader, KindOfKeyword(keyword));
    return !ReportReadFault(reader, model.path);
}

// ---- Items -------------------------------------------------------------------------------------

using Items = std::vector<const BlockItem*>;

// A list of items in both models, and whose they are.
struct ItemLists {
    const ItemNames& names;
    std::wstring owner;  // as texts begin with it; empty: nobody's
    Items before;
    Items now;
};

// "Panel 3 'Bottom'": an item by its place, from 0.
std::wstring ItemText(const ItemNames& names, const BlockItem& item, size_t index) {
    if (names.isSingle) return names.name;
    const std::wstring name = NameOfItem(names, item);
    const std::wstring text = names.name + (L' ' + std::to_wstring(index + 1));
    return name.empty() ? text : text + L" '" + name + L'\'';
}

std::wstring WhereText(const ItemLists& lists, const BlockItem& item, size_t index) {
    const ItemNames& names = lists.names;
    const bool hasKeys = !names.keys.empty();
    const std::wstring text = hasKeys ? KeyText(names, item) + L", " + WithSmallLetter(names.name)
                                      : ItemText(names, item, index);
    if (lists.owner.empty()) return hasKeys ? WithCapital(text) : text;
    return lists.owner + L", " + (hasKeys ? text : WithSmallLetter(text));
}

std::wstring AllValues(const ItemNames& names, const BlockItem& item) {
    std::wstring text;
    for (const NamedValue& value : ValuesOf(names, item, item)) {
        if (!text.empty()) text += L' ';
        text += value.value;
    }
    return text.find_first_not_of(L' ') == std::wstring::npos ? L"(empty)" : text;
}

bool CompareValues(const ItemLists& lists, const ItemPair& pair, const OnDifference& onDifference) {
    const BlockItem& before = *lists.before[pair.before];
    const BlockItem& now = *lists.now[pair.now];
    const std::vector<NamedValue> was = ValuesOf(lists.names, before, now);
    const std::vector<NamedValue> is = ValuesOf(lists.names, now, before);
    const std::wstring where = WhereText(lists, now, pair.now);
    for (size_t i = 0; i < was.size(); ++i) {
        if (was[i].value == is[i].value) continue;
        if (!onDifference({where, is[i].name, was[i].value, is[i].value})) return false;
    }
    return true;
}

bool NotePair(const ItemLists& lists, const ItemPair& pair, const OnDifference& onDifference) {
    if (pair.isSame) return true;
    if (pair.now == ItemPair::kNoItem) {
        const BlockItem& item = *lists.before[pair.before];
        return onDifference(
            {WhereText(lists, item, pair.before), L"", AllValues(lists.names, item), L""});
    }
    if (pair.before == ItemPair::kNoItem) {
        const BlockItem& item = *lists.now[pair.now];
        return onDifference(
            {WhereText(lists, item, pair.now), L"", L"", AllValues(lists.names, item)});
    }
    return CompareValues(lists, pair, onDifference);
}

std::vector<std::string_view> TextsOf(const Items& items) {
    std::vector<std::string_view> texts;
    texts.reserve(items.size());
    for (const BlockItem* item : items) texts.emplace_back(item->text);
    return texts;
}

bool CompareItems(const ItemLists& lists, const OnDifference& onDifference) {
    const auto mayPair = [&lists](size_t before, size_t now) {
        return KeyColumns(lists.names, *lists.before[before]) ==
               KeyColumns(lists.names, *lists.now[now]);
    };
    const std::vector<ItemPair> pairs = Align(TextsOf(lists.before), TextsOf(lists.now), mayPair);
    return std::ranges::all_of(
        pairs, [&](const ItemPair& pair) { return NotePair(lists, pair, onDifference); });
}

// ---- Tables ------------------------------------------------------------------------------------

const ItemTable* TableWith(const BlockItems& block, bool (*isWanted)(const ItemTable&)) {
    const auto found = std::ranges::find_if(block.tables, isWanted);
    return found == block.tables.end() ? nullptr : &*found;
}

// The panels or bulkheads of both models, those that are the same in one pair.
struct Owners {
    const ItemTable* before = nullptr;
    const ItemTable* now = nullptr;
    std::vector<ItemPair> pairs;
    // By number, from 1: which pair they are in. Rows of a number that no owner has are compared as
    // those of one owner, that of the number.
    std::vector<size_t> pairOfBefore, pairOfNow;
};

Items AllOf(const ItemTable* table) {
    Items items;
    if (table == nullptr) return items;
    for (const BlockItem& item : table->items) items.push_back(&item);
    return items;
}

Owners FindOwners(const BlockItems& before, const BlockItems& now) {
    const auto isOwners = [](const ItemTable& table) { return table.isOwners; };
    Owners owners{TableWith(before, isOwners), TableWith(now, isOwners), {}, {}, {}};
    const auto namesOf = [](const ItemTable* table) {
        std::vector<std::string_view> names;
        for (const BlockItem* item : AllOf(table)) {
            const std::string_view text = item->text;
            names.push_back(text.substr(0, text.find('\t')));
        }
        return names;
    };
    owners.pairs =
        Align(namesOf(owners.before), namesOf(owners.now), [](size_t, size_t) { return true; });
    owners.pairOfBefore.resize(owners.before == nullptr ? 0 : owners.before->items.size());
    owners.pairOfNow.resize(owners.now == nullptr ? 0 : owners.now->items.size());
    for (size_t i = 0; i < owners.pairs.size(); ++i) {
        const auto [was, is, isSame] = owners.pairs[i];
        if (was != ItemPair::kNoItem) owners.pairOfBefore[was] = i;
        if (is != ItemPair::kNoItem) owners.pairOfNow[is] = i;
    }
    return owners;
}

std::wstring OwnerText(const Owners& owners, size_t pair) {
    const auto [was, is, isSame] = owners.pairs[pair];
    const bool isThere = is != ItemPair::kNoItem;
    const ItemTable& table = isThere ? *owners.now : *owners.before;
    const size_t index = isThere ? is : was;
    return ItemText(*table.names, table.items[index], index);
}

// Items by owner: those of pairs by their index, those of nobody after them, by their number.
using ByOwner = std::map<int64_t, ItemLists>;

void AddByOwner(const ItemTable* table, const Owners& owners, Items ItemLists::* list,
                ByOwner& groups) {
    if (table == nullptr) return;
    const std::vector<size_t>& pairOf =
        list == &ItemLists::now ? owners.pairOfNow : owners.pairOfBefore;
    for (const BlockItem& item : table->items) {
        const auto index = static_cast<size_t>(int64_t{item.owner} - 1);
        const bool isKnown = index < pairOf.size();
        const int64_t key = isKnown ? static_cast<int64_t>(pairOf[index])
                                    : static_cast<int64_t>(owners.pairs.size()) +
                                          std::max(int64_t{item.owner}, int64_t{-1}) + 1;
        auto found = groups.find(key);
        if (found == groups.end()) {
            const std::wstring owner =
                isKnown ? OwnerText(owners, pairOf[index]) : L"No. " + std::to_wstring(item.owner);
            found = groups.emplace(key, ItemLists{*table->names, owner, {}, {}}).first;
        }
        (found->second.*list).push_back(&item);
    }
}

bool CompareByOwner(const ItemTable* before, const ItemTable* now, const Owners& owners,
                    const OnDifference& onDifference) {
    ByOwner groups;
    AddByOwner(now, owners, &ItemLists::now, groups);
    AddByOwner(before, owners, &ItemLists::before, groups);
    return std::ranges::all_of(
        groups, [&](const auto& group) { return CompareItems(group.second, onDifference); });
}

bool CompareOwners(const Owners& owners, const OnDifference& onDifference) {
    if (owners.before == nullptr && owners.now == nullptr) return true;
    const ItemTable& any = owners.now != nullptr ? *owners.now : *owners.before;
    const ItemLists lists{*any.names, L"", AllOf(owners.before), AllOf(owners.now)};
    return std::ranges::all_of(owners.pairs, [&](ItemPair pair) {
        pair.isSame = false;  // the names may be all that is the same
        return NotePair(lists, pair, onDifference);
    });
}

// Rows of a table that the program does not know are named after it.
bool CompareRows(const ItemTable* before, const ItemTable* now, const OnDifference& onDifference) {
    const ItemTable& any = now != nullptr ? *now : *before;
    const bool isUnknown = any.names->lines.empty() && !any.label.empty();
    const std::wstring owner = isUnknown ? TableName(any.label) : std::wstring();
    return CompareItems({*any.names, owner, AllOf(before), AllOf(now)}, onDifference);
}

bool CompareTable(const ItemTable* before, const ItemTable* now, const Owners& owners,
                  const OnDifference& onDifference) {
    const ItemTable& any = now != nullptr ? *now : *before;
    if (any.isOwners) return CompareOwners(owners, onDifference);
    if (any.names->hasOwner) return CompareByOwner(before, now, owners, onDifference);
    return CompareRows(before, now, onDifference);
}

// The two tables before the first label have none: they are the same by their places.
const ItemTable* SameTable(const BlockItems& block, const ItemTable& table, size_t index) {
    if (table.label.empty()) return &block.tables[index];
    const auto found = std::ranges::find(block.tables, table.label, &ItemTable::label);
    return found == block.tables.end() ? nullptr : &*found;
}

bool CompareContents(const BlockItems& before, const BlockItems& now,
                     const OnDifference& onDifference) {
    const Owners owners = FindOwners(before, now);
    for (size_t i = 0; i < now.tables.size(); ++i) {
        const ItemTable& table = now.tables[i];
        if (!CompareTable(SameTable(before, table, i), &table, owners, onDifference)) return false;
    }
    for (size_t i = 0; i < before.tables.size(); ++i) {
        const ItemTable& table = before.tables[i];
        if (SameTable(now, table, i) != nullptr) continue;
        if (!CompareTable(&table, nullptr, owners, onDifference)) return false;
    }
    return true;
}

}  // namespace

bool CompareModels(const ModelPlace& before, const ModelPlace& now,
                   const OnDifference& onDifference) {
    BlockItems was;
    BlockItems is;
    if (!ReadItems(before, was) || !ReadItems(now, is)) return false;
    if (was.name != is.name && !onDifference({L"Model", L"Name", system::WideFromAnsi(was.name),
                                              system::WideFromAnsi(is.name)})) {
        return true;
    }
    CompareContents(was, is, onDifference);
    return true;
}

bool FindOtherContents(const ModelPlace& before, const ModelPlace& now, bool& differ) {
    BlockItems was;
    BlockItems is;
    if (!ReadItems(before, was) || !ReadItems(now, is)) return false;
    differ = !CompareContents(was, is, [](const Difference&) { return false; });
    return true;
}

}  // namespace corvane
