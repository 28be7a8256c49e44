# Prints the table of tests/imaging/VariantTable.h in Markdown: for each DPI of a window the variant that it gets, and
# how large the variant's pixels are drawn.
#
#   awk -f variant-table.awk tests/imaging/VariantTable.h

# Splits the numbers of a text into the array `numbers`; returns how many there are.
function read_numbers(text) {
    gsub(/[^0-9]+/, " ", text)
    sub(/^ /, "", text)
    sub(/ $/, "", text)
    return split(text, numbers, " ")
}

function listed(count,    i, text) {
    for (i = 1; i <= count; ++i) text = text (i == 1 ? "" : i == count ? " and " : ", ") numbers[i]
    return text
}

function cell(dpi, chosen) {
    return dpi == chosen ? "**" chosen "**" : chosen " at " int(100 * dpi / chosen + 0.5) " %"
}

function add_set(record) {
    head = head " drawn for " listed(read_numbers(record)) " |"
    rule = rule "---|"
}

function print_row(record,    count, i, line) {
    if (!rows++) print "| DPI of the window |" head "\n|---|" rule
    count = read_numbers(record)
    line = "| " numbers[1] " |"
    for (i = 2; i <= count; ++i) line = line " " cell(numbers[1], numbers[i]) " |"
    print line
}

/^};/ { table = "" }
table != "" {
    # A line may have several records.
    rest = $0
    while (match(rest, /\{[0-9]+, (\{[0-9, ]+\}|[0-9, ]+)\}/)) {
        record = substr(rest, RSTART, RLENGTH)
        rest = substr(rest, RSTART + RLENGTH)
        if (table == "sets") add_set(record)
        else print_row(record)
    }
}
/kDrawnDpis\[\] = \{$/ { table = "sets" }
/kVariantTable\[\] = \{$/ { table = "rows" }

END { exit rows ? 0 : 1 }
