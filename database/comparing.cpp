#include "database/comparing.h"

#include <map>
#include <utility>

#include "database/scanning.h"
#include "files/progress.h"
#include "report/reporters.h"

namespace corvane {
namespace {

constexpr size_t kNone = static_cast<size_t>(-1);

// The models of `now`, by index: which one of `before` it is; kNone: none.
struct Matches {
    const std::vector<ModelEntry>& before;
    const std::vector<ModelEntry>& now;
    std::vector<size_t> partners;
    std::vector<bool> isTaken;  // of `before`
};

void Match(Matches& matches, size_t before, size_t now) {
    matches.partners[now] = before;
    matches.isTaken[before] = true;
}

// By what a model is found again.
using Key = std::pair<ModelKind, std::wstring>;
using Places = std::map<Key, std::vector<size_t>>;

void MatchByIdentifiers(Matches& matches) {
    const auto placesOf = [](const std::vector<ModelEntry>& models) {
        Places places;
        for (size_t i = 0; i < models.size(); ++i) {
            const std::string& identifier = models[i].identifier;
            if (!identifier.empty()) {
                places[{models[i].kind, system::WideFromAnsi(identifier)}].push_back(i);
            }
        }
        return places;
    };
    const Places before = placesOf(matches.before);
    for (const auto& [key, places] : placesOf(matches.now)) {
        const auto found = before.find(key);
        if (found == before.end() || places.size() > 1 || found->second.size() > 1) continue;
        Match(matches, found->second.front(), places.front());
    }
}

// Those that have no partner yet.
void MatchByNames(Matches& matches) {
    Places before;
    for (size_t i = matches.before.size(); i-- > 0;) {
        const ModelEntry& model = matches.before[i];
        if (!matches.isTaken[i]) before[{model.kind, model.name}].push_back(i);
    }
    for (size_t i = 0; i < matches.now.size(); ++i) {
        if (matches.partners[i] != kNone) continue;
        const auto found = before.find({matches.now[i].kind, matches.now[i].name});
        if (found == before.end() || found->second.empty()) continue;
        Match(matches, found->second.back(), i);
        found->second.pop_back();
    }
}

struct Database {
    const std::wstring& path;
    DigestedList list;
};

bool Read(Database& database) {
    return RequireDatabaseFile(database.path) &&
           ListModelsWithDigests(database.path, database.list);
}

// Two models that are one, by their indexes. False, and reported, when one of the two cannot be
// read.
bool CompareModel(const Database& before, const Database& now, std::pair<size_t, size_t> indexes,
                  ComparedModel& model) {
    const auto [beforeIndex, nowIndex] = indexes;
    const ModelEntry& was = before.list.models[beforeIndex];
    const ModelEntry& is = now.list.models[nowIndex];
    model.before = was;
    model.isRenamed = was.name != is.name;
    model.hasOtherNumber = was.number != is.number;
    if (before.list.digests[beforeIndex] == now.list.digests[nowIndex]) return true;
    return FindOtherContents(PlaceIn(before.path, was), PlaceIn(now.path, is), model.isChanged);
}

}  // namespace

const ModelEntry& AnyOf(const ComparedModel& model) {
    // NOLINTNEXTLINE(bugprone-unchecked-optional-access): one of the two is there.
    return model.now ? *model.now : *model.before;
}

ModelPlace PlaceIn(const std::wstring& path, const ModelEntry& model) {
    return {path, {model.number, model.offset, model.stamp}};
}

bool CompareDatabases(const std::wstring& before, const std::wstring& now,
                      std::vector<ComparedModel>& models) {
    Database was{before, {}};
    Database is{now, {}};
    if (!Read(was) || !Read(is)) return false;
    Matches matches{was.list.models, is.list.models,
                    std::vector<size_t>(is.list.models.size(), kNone),
                    std::vector<bool>(was.list.models.size())};
    MatchByIdentifiers(matches);
    MatchByNames(matches);
    models.clear();
    Progress progress(static_cast<int64_t>(is.list.models.size()));
    for (size_t i = 0; i < is.list.models.size(); ++i) {
        if (!Advance(progress, 1)) {
            ReportNote(kMsgReadingCancelled, {now});
            return false;
        }
        ComparedModel& model = models.emplace_back();
        model.now = is.list.models[i];
        const size_t partner = matches.partners[i];
        if (partner == kNone) continue;
        if (!CompareModel(was, is, {partner, i}, model)) return false;
    }
    for (size_t i = 0; i < was.list.models.size(); ++i) {
        if (!matches.isTaken[i]) models.emplace_back().before = was.list.models[i];
    }
    return true;
}

}  // namespace corvane
