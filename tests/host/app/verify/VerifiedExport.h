#pragma once

#include "ExportSession.h"
#include "host/app/verify/verifyExport.h"

#include <map>
#include <string>
#include <vector>

namespace tvk {

/// Exports that are proved, and what is said of them when their files are changed.
class VerifiedExport : public ExportSession {
public:
    static inline const std::string kAllFiles =
        "ica_file_out=1;ima_file_out=1;itp_file_out=1;iva_file_out=1;ita_file_out=1;";

    /// Opens a sample and exports it to model.*; a test failure when it is not exported.
    void exportSample(const std::string& name, const std::string& options);
    /// Exports the open scene.
    void exportOpen(const std::string& options, bool selection = false);

    /// What a proof finds of the files as they are, "" when nothing: the first finding, or why they cannot be read.
    std::string firstFinding();
    /// The same with another text of one kind of file; the file is put back.
    std::string findingWith(const std::string& kind, const std::string& text);

    /// Texts of the files by their kind.
    std::map<std::string, std::string> texts;
    host::app::verify::Verification last;

private:
    bool selection_ = false;
};

} // namespace tvk
