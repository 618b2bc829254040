-- The collection store. Text compares without regard to case, auto-numbers are never
-- reused, and typed columns refuse text that does not convert, so the data stays typed.
-- The checks look at the value as given: the column's affinity turns accepted text into a number.

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
        CONSTRAINT "id_collezione deve essere un numero intero" CHECK (id_collezione IS NULL OR typeof(id_collezione) = 'integer'
            OR (trim(id_collezione) <> '' AND trim(id_collezione) NOT GLOB '*[^0-9]*')
            OR (trim(id_collezione) GLOB '[+-][0-9]*' AND substr(trim(id_collezione), 2) NOT GLOB '*[^0-9]*')),
    nome          TEXT COLLATE NOCASE,
    etichetta     TEXT COLLATE NOCASE,
    tipo          TEXT COLLATE NOCASE,
    "left"        INTEGER
        CONSTRAINT "left deve essere un numero intero" CHECK ("left" IS NULL OR typeof("left") = 'integer'
            OR (trim("left") <> '' AND trim("left") NOT GLOB '*[^0-9]*')
            OR (trim("left") GLOB '[+-][0-9]*' AND substr(trim("left"), 2) NOT GLOB '*[^0-9]*')),
    top           INTEGER
        CONSTRAINT "top deve essere un numero intero" CHECK (top IS NULL OR typeof(top) = 'integer'
            OR (trim(top) <> '' AND trim(top) NOT GLOB '*[^0-9]*')
            OR (trim(top) GLOB '[+-][0-9]*' AND substr(trim(top), 2) NOT GLOB '*[^0-9]*')),
    width         INTEGER
        CONSTRAINT "width deve essere un numero intero" CHECK (width IS NULL OR typeof(width) = 'integer'
            OR (trim(width) <> '' AND trim(width) NOT GLOB '*[^0-9]*')
            OR (trim(width) GLOB '[+-][0-9]*' AND substr(trim(width), 2) NOT GLOB '*[^0-9]*')),
    height        INTEGER
        CONSTRAINT "height deve essere un numero intero" CHECK (height IS NULL OR typeof(height) = 'integer'
            OR (trim(height) <> '' AND trim(height) NOT GLOB '*[^0-9]*')
            OR (trim(height) GLOB '[+-][0-9]*' AND substr(trim(height), 2) NOT GLOB '*[^0-9]*')),
    tabindex      INTEGER
        CONSTRAINT "tabindex deve essere un numero intero" CHECK (tabindex IS NULL OR typeof(tabindex) = 'integer'
            OR (trim(tabindex) <> '' AND trim(tabindex) NOT GLOB '*[^0-9]*')
            OR (trim(tabindex) GLOB '[+-][0-9]*' AND substr(trim(tabindex), 2) NOT GLOB '*[^0-9]*')),
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
        CONSTRAINT "id_campo deve essere un numero intero" CHECK (id_campo IS NULL OR typeof(id_campo) = 'integer'
            OR (trim(id_campo) <> '' AND trim(id_campo) NOT GLOB '*[^0-9]*')
            OR (trim(id_campo) GLOB '[+-][0-9]*' AND substr(trim(id_campo), 2) NOT GLOB '*[^0-9]*')),
    valore       TEXT COLLATE NOCASE,
    data_ins     TEXT COLLATE NOCASE
        CONSTRAINT "data_ins deve essere una data" CHECK (data_ins IS NULL OR date(data_ins) IS data_ins),
    data_mod     TEXT COLLATE NOCASE
        CONSTRAINT "data_mod deve essere una data" CHECK (data_mod IS NULL OR date(data_mod) IS data_mod),
    numerorecord INTEGER
        CONSTRAINT "numerorecord deve essere un numero intero" CHECK (numerorecord IS NULL OR typeof(numerorecord) = 'integer'
            OR (trim(numerorecord) <> '' AND trim(numerorecord) NOT GLOB '*[^0-9]*')
            OR (trim(numerorecord) GLOB '[+-][0-9]*' AND substr(trim(numerorecord), 2) NOT GLOB '*[^0-9]*'))
);

CREATE INDEX valori_campo_record ON valori (id_campo, numerorecord);
CREATE INDEX campi_collezione ON campi (id_collezione);
