#include "tools/bracken-scan/options.h"

namespace bracken::cli {

const char* const usage =
    R"(Usage: bracken-scan [OPTION...] FOLDER...
Says which database tables the files below the FOLDERs name, and which none of them names.

The names of the tables, from one of:
  --tables FILE         one a line; - is standard input
  --database NAME       asked of the server
The server, and the login there:
  --host HOST           localhost if not given, by its socket unless --port is given
  --port PORT
  --socket PATH
  --user NAME           your own name if not given
  --password-file FILE  else the variable BRACKEN_PASSWORD, else a prompt at a terminal
What is searched:
  --extensions LIST     only files whose name ends in a dot and one of these, as php,js, in any
                        case; repeats add up
  --exclude GLOB        leave out files and folders whose name or whole path below FOLDER matches;
                        * ? [] match / and leading dots too; repeatable
  --whole-names         a hit counts only where no ASCII letter, digit, _ or $ adjoins it
  --strip-prefix TEXT   a hit of what follows this start of a name counts too
The answer:
  --format FORMAT       text (for people), tsv (table TAB path) or json (one object a line)
  --unused              only tables that nothing names
  --allow FILE          names or globs, one a line, of tables that may be unused
  --color WHEN          auto, always or never
Other:
  --threads N           how many files to search at a time; as many as there are processors
  --help, --version

Exit status: 0 every table is named or allowed, 1 some are not, 2 wrong use or something could not
be read, 130 interrupted, 141 nobody reads the answer any more.
)";

}  // namespace bracken::cli
