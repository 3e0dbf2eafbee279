#pragma once
// Whether a job can be printed as the printer is set up now.
#include "psui/model/model.h"
#include "psui/queries/ddi.h"
#include "psui/settings/record.h"

namespace psui {

/// Whether the model's PageSize feature has an option whose translation or name is the name of that paper.
/// Only a listed paper can have one.
bool MatchFormToPageSize(const ModelDescription* model, ResolvedPaper paper, const PaperForm& form);

/// Checks the job's paper, its tray, its options against the installed ones, and its resolution, in that
/// order. FALSE with one message in the query's buffer (see FormatErrorText) when it cannot be printed; the
/// buffer and cchNeeded are left alone when it can, and when the query has no job.
///
/// The job may be any caller's record (see ResolvePaper, which settles its form name). The printer is opened
/// by the caller; it must be readable. Any thread.
BOOL CheckJob(DevQueryPrintInfo* query);

} // namespace psui
