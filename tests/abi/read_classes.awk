# Reads what "readelf --debug-dump=info" tells about the classes of an object file. Writes,
# separated by tabs, a line for each class, one for its fields and one for each virtual operation
# that it declares:
#     class <name> <bases in order, with "|" between>
#     fields <name> <names of the fields in order, with blanks between; no static ones>
#     slot  <name> <slot, or ? where the compiler does not say> <mangled operation, or ~>
# A virtual destructor is "~"; it takes two slots. Of a class that occurs twice the first counts.

function value_after_colon(text) {
    sub(/^[^:]*: /, "", text)
    sub(/^\((indirect|indexed)[^)]*\): /, "", text)
    sub(/[ \t]+$/, "", text)
    return text
}

# Ends the entry whose attributes have been read.
function finish() {
    if (tag == "DW_TAG_namespace" || is_class(tag)) {
        scope[depth] = name
        if (is_class(tag)) {
            qualified = qualified_name(depth)
            name_of[offset] = qualified
            if (!declared_only && qualified != "") {
                if (!(qualified in seen)) {
                    seen[qualified] = 1
                    order[++classes] = qualified
                    first[qualified] = offset
                }
            }
            offset_at[depth] = offset
        }
    } else if (tag == "DW_TAG_member" && name !~ /^_vptr/ && !is_static) {
        fields[offset_at[depth - 1]] = fields[offset_at[depth - 1]] " " name
    } else if (tag == "DW_TAG_typedef") {
        meant[offset] = type
    } else if (tag == "DW_TAG_inheritance") {
        bases[offset_at[depth - 1]] = bases[offset_at[depth - 1]] " " type
    } else if (tag == "DW_TAG_subprogram" && is_virtual && class_tag[depth - 1]) {
        owner = offset_at[depth - 1]
        operations[owner] = operations[owner] " " (slot == "" ? "?" : slot) "=" \
                            (name ~ /^~/ ? "~" : linkage)
    }
    tag = ""
}

function is_class(kind) {
    return kind == "DW_TAG_class_type" || kind == "DW_TAG_structure_type"
}

# A base may be written by another name of it.
function base_name(at) {
    while (at in meant) {
        at = meant[at]
    }
    return name_of[at]
}

function qualified_name(level,    i, text) {
    text = ""
    for (i = 1; i <= level; ++i) {
        if (class_tag[i] || namespace_tag[i]) {
            text = text (text == "" ? "" : "::") scope[i]
        }
    }
    return text
}

/^ *<[0-9a-f]+><[0-9a-f]+>: Abbrev Number: 0$/ { finish(); next }

/^ *<[0-9a-f]+><[0-9a-f]+>: Abbrev Number/ {
    finish()
    split($0, parts, /[<>]/)
    depth = parts[2] + 0
    offset = parts[4]
    tag = $0
    sub(/^.*\(/, "", tag)
    sub(/\).*$/, "", tag)
    name = linkage = type = slot = ""
    is_virtual = declared_only = is_static = 0
    class_tag[depth] = is_class(tag)
    namespace_tag[depth] = (tag == "DW_TAG_namespace")
    next
}

/DW_AT_name / { name = value_after_colon($0) }
/DW_AT_linkage_name/ { linkage = value_after_colon($0) }
/DW_AT_type / { type = value_after_colon($0); gsub(/[<>]|0x/, "", type) }
/DW_AT_declaration/ { declared_only = 1 }
/DW_AT_external/ { is_static = 1 }
/DW_AT_virtuality/ { is_virtual = 1 }
/DW_AT_vtable_elem_location/ {
    slot = $0
    sub(/^.*DW_OP_const[us]: */, "", slot)
    sub(/^.*DW_OP_lit/, "", slot)
    sub(/\).*$/, "", slot)
}

END {
    finish()
    for (i = 1; i <= classes; ++i) {
        class = order[i]
        at = first[class]
        line = "class\t" class "\t"
        count = split(bases[at], list, " ")
        for (j = 1; j <= count; ++j) {
            line = line (j > 1 ? "|" : "") base_name(list[j])
        }
        print line
        print "fields\t" class "\t" substr(fields[at], 2)
        count = split(operations[at], list, " ")
        for (j = 1; j <= count; ++j) {
            equals = index(list[j], "=")
            print "slot\t" class "\t" substr(list[j], 1, equals - 1) "\t" substr(list[j], equals + 1)
        }
    }
}
