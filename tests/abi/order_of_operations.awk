# Reads the demangled lines of read_classes.awk, sorted, and writes the table of virtual
# operations of each polymorphic class of the project, without what it inherits from its first
# polymorphic base:
#     OrvikCore::ASession : OrvikCore::IControllerProvider
#          3  SetPickedEntities(...)

BEGIN { FS = "\t" }

function shorten(text) {
    gsub(/\[abi:cxx11\]/, "", text)
    gsub(/std::__cxx11::basic_string<wchar_t, std::char_traits<wchar_t>, std::allocator<wchar_t> ?>/,
         "std::wstring", text)
    gsub(/std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> ?>/,
         "std::string", text)
    while (match(text, /, std::allocator<[^<>]*(<[^<>]*>)?[^<>]*> ?>/)) {
        text = substr(text, 1, RSTART - 1) ">" substr(text, RSTART + RLENGTH)
    }
    return text
}

# Compilers write the numbers of a template with and without their type.
{ gsub(/UL>/, ">", $2) }

$1 == "class" {
    bases[$2] = $3
    if ($2 ~ /^(Orvik(Os|Core)|Tamb(VizCore|CommandsInfra))::/ || $2 ~ /^I?Tamb[A-Za-z]*$/) {
        names[++count] = $2
    }
}

$1 == "slot" {
    operation = $4
    head = operation
    sub(/\(.*/, "", head)
    while (match(head, /::/)) { # Without the class, so that an override is told by its text.
        head = substr(head, RSTART + 2)
        operation = substr(operation, index(operation, "::") + 2)
    }
    declared[$2, ++declarations[$2]] = shorten(operation)
    slots[$2, declarations[$2]] = $3
    has[$2, shorten(operation)] = 1
}

# The first base with a table, which shares its own with the class; "" without one.
function first_base(class,    list, number, i) {
    number = split(bases[class], list, "|")
    for (i = 1; i <= number; ++i) {
        if (is_polymorphic(list[i])) {
            return list[i]
        }
    }
    return ""
}

function is_polymorphic(class) {
    return declarations[class] > 0 || first_base(class) != ""
}

function inherits(class, operation,    base) {
    base = first_base(class)
    return base != "" && ((base, operation) in has || inherits(base, operation))
}

# The destructor stands in the first two neighbours that no operation takes; gcc does not say where,
# clang says 0.
function destructor_slot(class,    taken, i, slot) {
    for (i = 1; i <= declarations[class]; ++i) {
        if (declared[class, i] != "~") {
            taken[slots[class, i]] = 1
        }
    }
    for (slot = 0; slot in taken; ++slot) {
    }
    return slot
}

END {
    for (i = 1; i <= count; ++i) {
        class = names[i]
        if (!is_polymorphic(class)) {
            continue
        }
        parents = bases[class]
        gsub(/\|/, ", ", parents)
        print class (parents == "" ? "" : " : " parents)
        number = 0
        for (j = 1; j <= declarations[class]; ++j) {
            operation = declared[class, j]
            if (inherits(class, operation)) {
                continue
            }
            slot = operation == "~" ? destructor_slot(class) : slots[class, j]
            line[++number] = sprintf("    %3d  %s", slot,
                                     operation == "~" ? "destructor, two slots" : operation)
            for (k = number; k > 1 && line[k - 1] > line[k]; --k) {
                swapped = line[k]
                line[k] = line[k - 1]
                line[k - 1] = swapped
            }
        }
        for (j = 1; j <= number; ++j) {
            print line[j]
        }
    }
}
