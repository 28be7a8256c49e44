# Counts the test cases of a GoogleTest XML report: prints "passed failed skipped". A disabled test counts as skipped.
# The report has one element per line; the text of a failure may contain anything and is passed over.

BEGIN { passed = failed = skipped = 0 }

inText { if (/\]\]>/) inText = 0; next }

/^ *<testcase / {
    outcome = /status="notrun"/ || /result="(skipped|suppressed)"/ ? "skipped" : "passed"
    if (/\/>\r?$/) settle()
}
/^ *<failure / { outcome = "failed" }
/^ *<\/testcase>/ { settle() }
/<!\[CDATA\[/ && !/\]\]>/ { inText = 1 }
/^<\/testsuites>/ { complete = 1 }

function settle() {
    if (outcome == "passed") ++passed
    else if (outcome == "failed") ++failed
    else ++skipped
}

END {
    if (!complete) exit 1
    print passed, failed, skipped
}
