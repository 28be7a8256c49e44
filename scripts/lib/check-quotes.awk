# Checks that code in documents is real: each block of C++, and each other one that says so, has to stand, line by
# line, in the file named above it as
#
#   <!-- quoted from examples/gallery/MainFrame.cpp -->

function complain(what) { print FILENAME ":" FNR ": " what; bad = 1 }

# The lines of a file, with a line feed before and after each; empty for a file that can't be read.
function contents(file,    line, text) {
    if (!(file in known)) {
        text = ""
        while ((getline line < file) > 0) text = text "\n" line
        close(file)
        known[file] = text == "" ? "" : text "\n"
    }
    return known[file]
}

/^<!-- quoted from .* -->$/ { source = $4; next }
!inBlock && /^```/ {
    inBlock = 1
    block = ""
    if (source == "" && /^```(cpp|c\+\+)$/) complain("C++ code without the file that it is quoted from")
    next
}
inBlock && /^```$/ {
    inBlock = 0
    ++blocks
    if (source != "" && !index(contents(source), block "\n")) complain("not as in " source)
    source = ""
    next
}
inBlock { block = block "\n" $0 }

END {
    if (!blocks) { print "no quoted code found"; bad = 1 }
    exit bad
}
