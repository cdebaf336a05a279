#pragma once

#include "importer/Columns.h"
#include "launch/ContextoExecucao.h"

#include <QHash>

namespace vorta::importer {

/// Tells persons that are there already, in the base or earlier in the same file: by their document, or by their name
/// when they have none. This is what makes a second run of a file, and one that goes on behind a kill, add nothing.
class KnownPersons {
  public:
    struct Answer {
        bool known = false; ///< the base has this very person: nothing to do
        QString conflict;   ///< it has another one in its place, or the file has it twice
    };
    /// Asks for a row that begins in that line of the file, and remembers it.
    Answer ask(ContextoExecucao& contexto, const PersonRow& row, qint64 line);

  private:
    QHash<QString, qint64> lines_;
};

} // namespace vorta::importer
