# The store's engine: the system's SQLCipher, or, when ORVIX_SQLCIPHER_AMALGAMATION names a folder
# holding SQLCipher's sqlite3.c and sqlite3.h, that amalgamation built here (on OpenSSL's libcrypto),
# so the store layer can be built and tested against another series of the engine.
set(ORVIX_SQLCIPHER_AMALGAMATION "" CACHE PATH "Folder with SQLCipher's sqlite3.c and sqlite3.h")
add_library(orvix_sqlcipher INTERFACE)
if(ORVIX_SQLCIPHER_AMALGAMATION)
    enable_language(C)
    find_package(OpenSSL REQUIRED COMPONENTS Crypto)
    find_package(Threads REQUIRED)
    # The program includes <sqlcipher/sqlite3.h>, as the system's package lays it out.
    set(intestazioni ${CMAKE_BINARY_DIR}/sqlcipher-amalgamation)
    file(COPY ${ORVIX_SQLCIPHER_AMALGAMATION}/sqlite3.h DESTINATION ${intestazioni}/sqlcipher)
    add_library(sqlcipher_amalgamation STATIC ${ORVIX_SQLCIPHER_AMALGAMATION}/sqlite3.c)
    target_compile_definitions(sqlcipher_amalgamation PUBLIC SQLITE_HAS_CODEC
        PRIVATE SQLCIPHER_CRYPTO_OPENSSL SQLITE_TEMP_STORE=2 SQLITE_THREADSAFE=1 SQLITE_OMIT_LOAD_EXTENSION)
    target_compile_options(sqlcipher_amalgamation PRIVATE -w)
    set_target_properties(sqlcipher_amalgamation PROPERTIES LINKER_LANGUAGE C AUTOMOC OFF)
    target_include_directories(sqlcipher_amalgamation PUBLIC ${intestazioni})
    target_link_libraries(sqlcipher_amalgamation PUBLIC OpenSSL::Crypto Threads::Threads ${CMAKE_DL_LIBS} m)
    target_link_libraries(orvix_sqlcipher INTERFACE sqlcipher_amalgamation)
else()
    pkg_check_modules(SQLCIPHER REQUIRED IMPORTED_TARGET sqlcipher)
    target_link_libraries(orvix_sqlcipher INTERFACE PkgConfig::SQLCIPHER)
endif()
