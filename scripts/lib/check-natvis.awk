# Checks that every type and field of the debugger's views exists. Call it with the headers first, then the views:
#
#   awk -f check-natvis.awk HEADER... VIEWS.natvis...

function complain(what) { print FILENAME ":" FNR ": " what; bad = 1 }

# --- headers: the words of each class's body, and its base

FNR == 1 { class = "" }
FILENAME !~ /\.natvis$/ {
    sub(/\/\/.*/, "")
    if (match($0, /^(class|struct) [A-Za-z0-9_ ]+/) && !/;$/) {
        count = split(substr($0, RSTART, RLENGTH), words, " ")
        class = words[count]
        known[class] = 1
        if (match($0, /: public [A-Za-z0-9_]+/)) base[class] = substr($0, RSTART + 9, RLENGTH - 9)
    }
    if (class != "") remember(class, $0)
    if (/^}/) class = ""
    next
}

function remember(class, line) {
    while (match(line, /[A-Za-z_][A-Za-z0-9_]*/)) {
        member[class, substr(line, RSTART, RLENGTH)] = 1
        line = substr(line, RSTART + RLENGTH)
    }
}

# --- views

/<(Type|AlternativeType) / { ++types; enter_type($0) }
/<(DisplayString|StringView|Item|ExpandedItem)[ >]/ { check_element($0) }

# The type of "std::unique_ptr<*,GdiObjectDeleter>" is known by what it frees with.
function enter_type(line) {
    match(line, /Name="[^"]*"/)
    type = substr(line, RSTART + 6, RLENGTH - 7)
    standard = sub(/^std::unique_ptr&lt;\*,/, "", type)
    sub(/&.*/, "", type)
    if (!(type in known)) complain("no type " type)
}

function check_element(line,    text, expression) {
    if (match(line, /Condition="[^"]*"/)) check_expression(substr(line, RSTART + 11, RLENGTH - 12))
    text = line
    sub(/^ *<[^>]*>/, "", text)
    sub(/<\/.*/, "", text)
    if (line !~ /<DisplayString/) {
        check_expression(text)
        return
    }
    while (match(text, /[{][^}]*[}]/)) {
        expression = substr(text, RSTART + 1, RLENGTH - 2)
        text = substr(text, RSTART + RLENGTH)
        check_expression(expression)
    }
}

# The first name of each chain such as "m_size.cx" is a field of the type, the others are fields of what it is.
function check_expression(text,    name, before) {
    gsub(/&[a-z]+;/, " ", text)
    sub(/,[a-z]+$/, "", text)
    gsub(/\([A-Za-z_:]+\*\)/, " ", text)
    while (match(text, /[A-Za-z_][A-Za-z0-9_]*/)) {
        name = substr(text, RSTART, RLENGTH)
        before = RSTART > 1 ? substr(text, RSTART - 1, 1) : ""
        text = substr(text, RSTART + RLENGTH)
        ++names
        if (name != "nullptr" && !is_member(type, name, before)) complain("no field " name " in " type)
    }
}

function is_member(type, name, before,    class) {
    if (standard) return name == "_Mypair" || name == "_Myval2"
    if (before == ".") return name ~ /^(left|top|right|bottom|cx|cy)$/ || ("StringStorage", name) in member
    for (class = type; class != ""; class = base[class])
        if ((class, name) in member) return 1
    return 0
}

END {
    if (!types || !names) { print "no views found"; bad = 1 }
    exit bad
}
