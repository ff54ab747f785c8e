# SPDX-License-Identifier: MIT
# The manual page and the shell completions, written at build time by the
# tool from its own command line, so that they list exactly what it accepts;
# installed where man and each shell look.
set(DEVCTRL_TOOL_DOCS_DIR ${PROJECT_BINARY_DIR}/tool-docs)
set(DEVCTRL_MAN_PAGE ${DEVCTRL_TOOL_DOCS_DIR}/devctrl.1)
set(DEVCTRL_COMPLETION_BASH ${DEVCTRL_TOOL_DOCS_DIR}/bash/devctrl)
set(DEVCTRL_COMPLETION_ZSH ${DEVCTRL_TOOL_DOCS_DIR}/zsh/_devctrl)
set(DEVCTRL_COMPLETION_FISH ${DEVCTRL_TOOL_DOCS_DIR}/fish/devctrl.fish)
add_custom_command(
    OUTPUT ${DEVCTRL_MAN_PAGE} ${DEVCTRL_COMPLETION_BASH} ${DEVCTRL_COMPLETION_ZSH}
           ${DEVCTRL_COMPLETION_FISH}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${DEVCTRL_TOOL_DOCS_DIR}/bash
            ${DEVCTRL_TOOL_DOCS_DIR}/zsh ${DEVCTRL_TOOL_DOCS_DIR}/fish
    COMMAND sh -c "\"$1\" man > \"$2\" && \"$1\" completion bash > \"$3\" && \"$1\" completion zsh > \"$4\" && \"$1\" completion fish > \"$5\""
            write-tool-docs $<TARGET_FILE:devctrl_tool> ${DEVCTRL_MAN_PAGE}
            ${DEVCTRL_COMPLETION_BASH} ${DEVCTRL_COMPLETION_ZSH} ${DEVCTRL_COMPLETION_FISH}
    DEPENDS devctrl_tool
    COMMENT "Writing the devctrl manual page and shell completions"
    VERBATIM)
add_custom_target(devctrl_tool_docs ALL
    DEPENDS ${DEVCTRL_MAN_PAGE} ${DEVCTRL_COMPLETION_BASH} ${DEVCTRL_COMPLETION_ZSH}
            ${DEVCTRL_COMPLETION_FISH})

install(FILES ${DEVCTRL_MAN_PAGE} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${DEVCTRL_COMPLETION_BASH}
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES ${DEVCTRL_COMPLETION_ZSH} DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
install(FILES ${DEVCTRL_COMPLETION_FISH}
    DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
