// The commands of the Section menu, on the current model.
//
// The current model is known by its number, which the list's row has from its block. Where no model
// of the file has it (message 1011), or it does not lead to one model alone (3522), nothing is run,
// asked or changed. The file is read
// again after the user has answered: when another program has put another model there meanwhile
// (3523), nothing is changed, and the list is shown again. A command that the user cancels, or that
// fails, which is reported, leaves the file and the state of the process as they were.
#pragma once

#include <string>

namespace corvane {

// Edits the current model in the input program of its kind.
void ME_SectionInput_Click();
// Checks the current model in the rule program of its kind.
void ME_SectionVelkRule_Click();

// Asks for the copy's name, proposing "Copy of " and the model's; an empty name cancels. The copy
// is the last model of the file, and becomes the current one. A torsion model's copy keeps its name
// whatever was typed. A read-only database is copied to another file first, which becomes the open
// one.
void ME_SectionCopy_Click();

// Removes the model when the user says Yes, with a backup of the file when the settings'
// IntegerSetting is not 0. The current model's number stays: the next model has it now, or, after
// the last one, none.
void ME_SectionRemove_Click();
bool KeepsBackupOnRemoval();
// What the question says of the backup.
std::wstring BackupAdvice();

// Asks for another name, proposing the model's; an empty name and the old one change nothing. The
// model stays the current one. A read-only database is copied to another file first, which becomes
// the open one.
void ME_SectionRename_Click();

// Shows what the current model is (shell/model_properties.h).
void ME_SectionProperties_Click();

// Appends models of another database to the open one (shell/model_exchange.h). The last one becomes
// the current one.
void ME_SectionImport_Click();

// Writes the current model, a section, into an existing legacy database: into a new slot after the
// others, or over a section that is there.
void ME_SectionExport_Click();

}  // namespace corvane
