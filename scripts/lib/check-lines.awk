# Complains about lines that are too long or have white space where it does not belong.

function complain(what) { print FILENAME ":" FNR ": " what; bad = 1 }

length($0) > 110 { complain("more than 110 columns") }
/\t/ { complain("a tab") }
/[ \r]$/ { complain("a space or carriage return at the end") }
END { exit bad }
