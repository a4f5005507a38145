// What became of every model in an exchange with another database: it is gathered while models are
// converted, and shown once at the end of the exchange, model by model.
#pragma once

#include <string>
#include <vector>

#include "database/model_kind.h"
#include "report/messages.h"

namespace corvane {

// Of one model: texts of messages, in the order in which the losses were met.
using Losses = std::vector<std::wstring>;

// Adds the text of a message; nothing is shown yet.
void NoteLoss(Losses& losses, int32_t message, MessageArguments arguments = {});

enum class Outcome { kWentOver, kChanged, kLeftOut };

struct ExchangedModel {
    std::wstring name;
    ModelKind kind = ModelKind::kSection;
    Outcome outcome = Outcome::kWentOver;
    // What was left out of it, cut, moved or defaulted; of a model that was left out: why.
    Losses what;
};

struct ExchangeReport {
    std::vector<ExchangedModel> models;  // every one, in the order of the exchange
    bool hasShip = false;                // the Basic Ship Data are part of the exchange
    Losses ship;                         // what was changed in them
    Losses whole;                        // what concerns no single model
};

// Adds a section that went over, changed when something of it was lost.
void AddSection(ExchangeReport& report, const std::wstring& name, Losses losses);
// Adds a model that was left out, because of a message.
void AddLeftOut(ExchangeReport& report, ModelKind kind, const std::wstring& name, int32_t message,
                MessageArguments arguments = {});

int32_t CountOf(const ExchangeReport& report, Outcome outcome);
// Of the models that were not left out.
int32_t CountArrived(const ExchangeReport& report);
// Whether all went over as it was.
bool IsUnchanged(const ExchangeReport& report);

// ---- As text -----------------------------------------------------------------------------------

// The models that are there now, changed or not, by their kinds: "2 sections and 1 torsion model";
// empty without any.
std::wstring ArrivedText(const ExchangeReport& report);
// What a status line adds to what went over: "; 2 sections were changed; 1 torsion model was left
// out". Empty when there is nothing to add.
std::wstring RestText(const ExchangeReport& report);

// A line of the report: what went over or did not, what became of it, and one thing that was
// changed, or why it was left out.
struct ExchangeLine {
    std::wstring model;
    std::wstring kind;
    Outcome outcome = Outcome::kWentOver;
    std::wstring what;
};
// First what concerns no single model, then the ship's data, then the models in their order: a line
// for each thing that was changed, one for what went over as it was.
std::vector<ExchangeLine> LinesOf(const ExchangeReport& report);
// "Went over", "Changed", "Left out".
std::wstring OutcomeText(Outcome outcome);

// One box with all that did not go over as it was (message 3592), at most 24 lines, the last of
// which counts what is left out. `path` is the other database. Nothing is shown when all did.
void ReportLosses(const std::wstring& path, const ExchangeReport& report);

}  // namespace corvane
