# Prints, of a GoogleTest program's output, the parts that belong to failed tests and to one that did not end.

{ sub(/\r$/, "") }
/^\[ RUN      \] / { part = ""; open = 1 }
open { part = part "    " $0 "\n" }
open && /^\[  FAILED  \] / { printf "%s", part }
/^\[(       OK|  SKIPPED|  FAILED ) \] / { open = 0 }
END { if (open) printf "%s", part }
