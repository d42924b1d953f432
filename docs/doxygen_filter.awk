# Turns the plain // comments of the headers into what Doxygen reads. The headers stay free of
# markup; what is done here:
#
#   the first comment of a file           its description, and the main page for the manager's header
#   // -- Title: sources ----             the start of a member group, up to the next one
#   a comment in front of declarations    their description, each of them where several follow
#   declaration;  // text                 the description of that declaration
#   drawings and tables in comments       text that keeps its columns
#   "1. Refusals: ..."                    "Returns 1. Refusals: ..."

function Comment(line) {
    sub(/^[ \t]*\/\/ ?/, "", line)
    return line
}

function IsComment(line) { return line ~ /^[ \t]*\/\// }

# Columns are kept from a line that is indented behind an empty one to the next empty one.
function EmitText(text) {
    if (!drawing && previous == "" && text ~ /^  +[^- ]/) {
        print "\\verbatim"
        drawing = 1
    } else if (drawing && text !~ /^ /) {
        print "\\endverbatim"
        drawing = 0
    }
    sub(/^[01]\. /, "Returns &", text)  # a result, and no list of numbers
    print text
    previous = text
}

# A description behind heading, which may be empty.
function EmitBlock(heading, first,   n) {
    print "/**" heading
    previous = "-"
    for (n = first; n <= count; ++n) EmitText(block[n])
    if (drawing) print "\\endverbatim"
    drawing = 0
    print "*/"
}

function EndGroup() {
    if (grouped) print "///@}"
    grouped = 0
}

function EmitGroup(   title) {
    EndGroup()
    title = block[1]
    gsub(/^-- | *-+$/, "", title)
    sub(/:.*/, "", title)  # the source files are no matter of the interface
    sub(/^-+ */, "", block[2])
    EmitBlock(" \\name " title, 2)
    print "///@{"
    grouped = 1
}

function EmitFileComment(   isMain) {
    isMain = FILENAME ~ /contact_local_manager\.h$/
    EmitBlock(isMain ? " \\mainpage The local phone book" : " \\file", 1)
    if (isMain) print "/** \\file\nThe class of the directory; the main page says how it is used. */"
}

function EmitComment() {
    if (!opened) {
        EmitFileComment()
        opened = 1
    } else if (block[1] ~ /^-- /) {
        EmitGroup()
        count = 0  # it describes the group, not what comes next
    } else {
        EmitBlock("", 1)
    }
}

/-\*- C\+\+ -\*-/ { next }

IsComment($0) {
    if (!pending) count = 0
    pending = 1
    block[++count] = Comment($0)
    next
}

{
    if (pending) {
        EmitComment()
        pending = 0
        fresh = 1
    } else if (/^[ \t]*$/ || /[{}]/) {
        count = 0
    } else if (complete && count > 0 && !/; +\/\/ /) {
        EmitBlock("", 1)  # the next declaration under the same comment
    }
    if (fresh && /^[ \t]*$/) count = 0
    fresh = 0
    if (/^  (private|public):/) EndGroup()
    if (/; +\/\/ / && !/NOLINT/) sub(/; +\/\/ /, ";  ///< ")
    complete = /;( +\/\/.*)?$/
    print
}
