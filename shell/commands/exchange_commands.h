// Commands that exchange models with other databases. What fails is reported; a command that the
// user cancels changes nothing.
#pragma once

namespace corvane {

// Writes the sections of the open database into a new legacy database. It is made elsewhere first:
// when the library or the disk fails, the file of that name is as it was. A section that can't be
// read is reported and left out.
void ME_FileSaveLegacy_Click();

// Appends models of another database to the open one, in the order of the list: sections of a
// legacy database, models of any kind of a model database. Sections and bulkhead arrangements get
// new identifiers; torsion models are copied line by line. A model that can't be read is left out,
// and the rest goes on; when the open database can't be written, it ends there. The backup holds
// the database as it was before the first one. The last model becomes the current one.
void ME_SectionImport_Click();

// Writes the current model, a section, into an existing legacy database: into a new slot behind the
// others, or over a section that is there.
void ME_SectionExport_Click();

}  // namespace corvane
