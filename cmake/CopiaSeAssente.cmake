# Copies SORGENTE to DESTINAZIONE only when nothing is there: a rebuild never replaces a user's data.
if(NOT EXISTS "${DESTINAZIONE}")
    file(COPY_FILE "${SORGENTE}" "${DESTINAZIONE}")
endif()
