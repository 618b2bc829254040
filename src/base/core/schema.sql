-- The collection store. Text compares without regard to case (NOCASE is the program's own
-- collation, which folds every letter, not only ASCII), auto-numbers are never reused, and typed
-- columns refuse text that does not convert, so the data stays typed: never a real or an infinity.
-- The checks accept a whole number however it is written (12, '12', 12.0, '12.0') and store it as an
-- integer: older engines check the value as given, newer ones after the column's affinity has turned
-- such text or real into an integer, and both must agree.
-- Positions and sizes are whole pixels from 0 to 32767, what a window can place.

CREATE TABLE collezioni (
    id             INTEGER PRIMARY KEY AUTOINCREMENT,
    nome           TEXT COLLATE NOCASE,
    descrizione    TEXT COLLATE NOCASE,
    data_creazione TEXT COLLATE NOCASE
        CONSTRAINT "data_creazione deve essere una data" CHECK (data_creazione IS NULL OR date(data_creazione) IS data_creazione)
);

CREATE TABLE campi (
    id            INTEGER PRIMARY KEY AUTOINCREMENT,
    id_collezione INTEGER
        CONSTRAINT "id_collezione deve essere un numero intero" CHECK (id_collezione IS NULL
            OR (typeof(id_collezione) IN ('integer', 'real') AND id_collezione = CAST(id_collezione AS INTEGER) AND id_collezione BETWEEN -999999999999999999 AND 999999999999999999)
            OR (typeof(id_collezione) = 'text' AND trim(id_collezione) GLOB '[0-9+-]*' AND substr(trim(id_collezione), 2) NOT GLOB '*[^0-9.]*' AND trim(id_collezione) NOT GLOB '[+-][^0-9]*'
                AND trim(id_collezione) NOT GLOB '*.*.*' AND trim(id_collezione) GLOB '*[0-9]' AND length(ltrim(trim(id_collezione), '+-0')) <= 18
                AND CAST(trim(id_collezione) AS REAL) = CAST(CAST(trim(id_collezione) AS REAL) AS INTEGER) AND CAST(trim(id_collezione) AS REAL) BETWEEN -999999999999999999 AND 999999999999999999)),
    nome          TEXT COLLATE NOCASE,
    etichetta     TEXT COLLATE NOCASE,
    tipo          TEXT COLLATE NOCASE,
    "left"        INTEGER
        CONSTRAINT "left deve essere un numero intero da 0 a 32767" CHECK ("left" IS NULL
            OR (typeof("left") IN ('integer', 'real') AND "left" = CAST("left" AS INTEGER) AND "left" BETWEEN 0 AND 32767)
            OR (typeof("left") = 'text' AND trim("left") NOT GLOB '*[^0-9.]*' AND trim("left") NOT GLOB '*.*.*'
                AND trim("left") GLOB '[0-9]*' AND trim("left") GLOB '*[0-9]'
                AND CAST(trim("left") AS REAL) = CAST(CAST(trim("left") AS REAL) AS INTEGER) AND CAST(trim("left") AS REAL) BETWEEN 0 AND 32767)),
    top           INTEGER
        CONSTRAINT "top deve essere un numero intero da 0 a 32767" CHECK (top IS NULL
            OR (typeof(top) IN ('integer', 'real') AND top = CAST(top AS INTEGER) AND top BETWEEN 0 AND 32767)
            OR (typeof(top) = 'text' AND trim(top) NOT GLOB '*[^0-9.]*' AND trim(top) NOT GLOB '*.*.*'
                AND trim(top) GLOB '[0-9]*' AND trim(top) GLOB '*[0-9]'
                AND CAST(trim(top) AS REAL) = CAST(CAST(trim(top) AS REAL) AS INTEGER) AND CAST(trim(top) AS REAL) BETWEEN 0 AND 32767)),
    width         INTEGER
        CONSTRAINT "width deve essere un numero intero da 0 a 32767" CHECK (width IS NULL
            OR (typeof(width) IN ('integer', 'real') AND width = CAST(width AS INTEGER) AND width BETWEEN 0 AND 32767)
            OR (typeof(width) = 'text' AND trim(width) NOT GLOB '*[^0-9.]*' AND trim(width) NOT GLOB '*.*.*'
                AND trim(width) GLOB '[0-9]*' AND trim(width) GLOB '*[0-9]'
                AND CAST(trim(width) AS REAL) = CAST(CAST(trim(width) AS REAL) AS INTEGER) AND CAST(trim(width) AS REAL) BETWEEN 0 AND 32767)),
    height        INTEGER
        CONSTRAINT "height deve essere un numero intero da 0 a 32767" CHECK (height IS NULL
            OR (typeof(height) IN ('integer', 'real') AND height = CAST(height AS INTEGER) AND height BETWEEN 0 AND 32767)
            OR (typeof(height) = 'text' AND trim(height) NOT GLOB '*[^0-9.]*' AND trim(height) NOT GLOB '*.*.*'
                AND trim(height) GLOB '[0-9]*' AND trim(height) GLOB '*[0-9]'
                AND CAST(trim(height) AS REAL) = CAST(CAST(trim(height) AS REAL) AS INTEGER) AND CAST(trim(height) AS REAL) BETWEEN 0 AND 32767)),
    tabindex      INTEGER
        CONSTRAINT "tabindex deve essere un numero intero da 0 a 32767" CHECK (tabindex IS NULL
            OR (typeof(tabindex) IN ('integer', 'real') AND tabindex = CAST(tabindex AS INTEGER) AND tabindex BETWEEN 0 AND 32767)
            OR (typeof(tabindex) = 'text' AND trim(tabindex) NOT GLOB '*[^0-9.]*' AND trim(tabindex) NOT GLOB '*.*.*'
                AND trim(tabindex) GLOB '[0-9]*' AND trim(tabindex) GLOB '*[0-9]'
                AND CAST(trim(tabindex) AS REAL) = CAST(CAST(trim(tabindex) AS REAL) AS INTEGER) AND CAST(trim(tabindex) AS REAL) BETWEEN 0 AND 32767)),
    tooltip       TEXT COLLATE NOCASE,
    formula       TEXT COLLATE NOCASE,
    "default"     TEXT COLLATE NOCASE,
    required      TEXT COLLATE NOCASE
        CONSTRAINT "required deve essere True, False o un numero" CHECK (
            required IS NULL
            OR lower(trim(required)) IN ('true', 'false')
            OR (trim(required) <> '' AND trim(required) NOT GLOB '*[^0-9]*')
            OR (trim(required) GLOB '[+-][0-9]*' AND substr(trim(required), 2) NOT GLOB '*[^0-9]*')),
    special       TEXT COLLATE NOCASE
);

CREATE TABLE valori (
    id_campo     INTEGER
        CONSTRAINT "id_campo deve essere un numero intero" CHECK (id_campo IS NULL
            OR (typeof(id_campo) IN ('integer', 'real') AND id_campo = CAST(id_campo AS INTEGER) AND id_campo BETWEEN -999999999999999999 AND 999999999999999999)
            OR (typeof(id_campo) = 'text' AND trim(id_campo) GLOB '[0-9+-]*' AND substr(trim(id_campo), 2) NOT GLOB '*[^0-9.]*' AND trim(id_campo) NOT GLOB '[+-][^0-9]*'
                AND trim(id_campo) NOT GLOB '*.*.*' AND trim(id_campo) GLOB '*[0-9]' AND length(ltrim(trim(id_campo), '+-0')) <= 18
                AND CAST(trim(id_campo) AS REAL) = CAST(CAST(trim(id_campo) AS REAL) AS INTEGER) AND CAST(trim(id_campo) AS REAL) BETWEEN -999999999999999999 AND 999999999999999999)),
    valore       TEXT COLLATE NOCASE,
    data_ins     TEXT COLLATE NOCASE
        CONSTRAINT "data_ins deve essere una data" CHECK (data_ins IS NULL OR date(data_ins) IS data_ins),
    data_mod     TEXT COLLATE NOCASE
        CONSTRAINT "data_mod deve essere una data" CHECK (data_mod IS NULL OR date(data_mod) IS data_mod),
    numerorecord INTEGER
        CONSTRAINT "numerorecord deve essere un numero intero" CHECK (numerorecord IS NULL
            OR (typeof(numerorecord) IN ('integer', 'real') AND numerorecord = CAST(numerorecord AS INTEGER) AND numerorecord BETWEEN -999999999999999999 AND 999999999999999999)
            OR (typeof(numerorecord) = 'text' AND trim(numerorecord) GLOB '[0-9+-]*' AND substr(trim(numerorecord), 2) NOT GLOB '*[^0-9.]*' AND trim(numerorecord) NOT GLOB '[+-][^0-9]*'
                AND trim(numerorecord) NOT GLOB '*.*.*' AND trim(numerorecord) GLOB '*[0-9]' AND length(ltrim(trim(numerorecord), '+-0')) <= 18
                AND CAST(trim(numerorecord) AS REAL) = CAST(CAST(trim(numerorecord) AS REAL) AS INTEGER) AND CAST(trim(numerorecord) AS REAL) BETWEEN -999999999999999999 AND 999999999999999999))
);

-- A record's values are found by field and record number; a search reads its field's values in
-- record order from the first index alone, and finds a whole value by its key in the second. Both
-- order by BINARY only, so a shell without the program's NOCASE finds them sound. The key (ASCII
-- lowered, the four characters that fold to ASCII replaced, 40 characters) must stay as the
-- program writes it in its queries.
CREATE INDEX valori_ricerca ON valori (id_campo, numerorecord, valore COLLATE BINARY, data_ins COLLATE BINARY, data_mod COLLATE BINARY);
CREATE INDEX valori_chiave ON valori (id_campo, substr(replace(replace(replace(replace(lower(valore), char(383), 's'), char(894), ';'), char(8175), '`'), char(8490), 'k'), 1, 40));
CREATE INDEX campi_collezione ON campi (id_collezione);
