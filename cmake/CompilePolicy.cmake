# One compile policy for every target of the project.
add_library(orvix_policy INTERFACE)
target_compile_options(orvix_policy INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor)
if(ORVIX_WERROR)
    target_compile_options(orvix_policy INTERFACE -Werror)
endif()
target_compile_definitions(orvix_policy INTERFACE
    QT_NO_CAST_TO_ASCII QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_USE_QSTRINGBUILDER QT_NO_KEYWORDS SQLITE_HAS_CODEC
    ORVIX_VERSION_MAJOR=${PROJECT_VERSION_MAJOR}
    ORVIX_VERSION_MINOR=${PROJECT_VERSION_MINOR}
    ORVIX_VERSION_REVISION=${PROJECT_VERSION_PATCH})
if(ORVIX_SANITIZE)
    target_compile_options(orvix_policy INTERFACE -fsanitize=address,undefined -fno-omit-frame-pointer
                                                  -fno-sanitize-recover=undefined)
    target_link_options(orvix_policy INTERFACE -fsanitize=address,undefined)
endif()

# The program spells every text it shows as a QString literal; tests may use plain literals.
add_library(orvix_policy_program INTERFACE)
target_link_libraries(orvix_policy_program INTERFACE orvix_policy)
target_compile_definitions(orvix_policy_program INTERFACE QT_NO_CAST_FROM_ASCII)
add_library(orvix_policy_tests INTERFACE)
target_link_libraries(orvix_policy_tests INTERFACE orvix_policy)
target_compile_definitions(orvix_policy_tests INTERFACE QT_RESTRICTED_CAST_FROM_ASCII)
