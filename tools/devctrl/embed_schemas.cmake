# SPDX-License-Identifier: MIT
# Writes OUTPUT, a C++ source holding every SCHEMA_DIR/*.json as a string, so
# that `devctrl schema` prints the published files themselves.
file(GLOB schemas "${SCHEMA_DIR}/*.json")
list(SORT schemas)
set(entries "")
foreach(schema IN LISTS schemas)
    get_filename_component(name "${schema}" NAME_WE)
    file(READ "${schema}" text)
    string(FIND "${text}" ")schema\"" clash)
    if(NOT clash EQUAL -1)
        message(FATAL_ERROR "${schema} holds the text that ends the embedded string")
    endif()
    string(APPEND entries "    {\"${name}\", R\"schema(${text})schema\"},\n")
endforeach()
# Appended piece by piece, quoted: a list would eat the semicolons.
set(source "// SPDX-License-Identifier: MIT\n")
string(APPEND source "// Generated from ${SCHEMA_DIR} at build time; edit the files there.\n")
string(APPEND source "#include \"embedded_schemas.h\"\n\nnamespace devctrl_tool {\n\n")
string(APPEND source "const std::vector<EmbeddedSchema>& embeddedSchemas() {\n")
string(APPEND source "    static const std::vector<EmbeddedSchema> schemas{\n${entries}    };\n")
string(APPEND source "    return schemas;\n}\n\n}  // namespace devctrl_tool\n")
# Rewritten only when it changes, so that nothing rebuilds needlessly.
file(WRITE "${OUTPUT}.new" "${source}")
file(COPY_FILE "${OUTPUT}.new" "${OUTPUT}" ONLY_IF_DIFFERENT)
file(REMOVE "${OUTPUT}.new")
