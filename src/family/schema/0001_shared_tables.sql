-- The tables that the whole family shares: catalogue, users, declarants, reports, and the heads and boxes of
-- declarations. Column order is part of the contract: the record checksum runs over it, and cNumero comes last.
-- Keys lead with the columns that every query names; the type of the declarant's document isn't always among them.

CREATE TABLE PARAM (
    Numero       TEXT COLLATE NOCASE NOT NULL,
    Argumento    TEXT COLLATE NOCASE NOT NULL,
    Funcion      TEXT COLLATE NOCASE,
    correl_param INTEGER,
    PRIMARY KEY (Numero, Argumento)
) STRICT;

CREATE TABLE ERROR (
    CodError  TEXT COLLATE NOCASE NOT NULL PRIMARY KEY,
    DescError TEXT COLLATE NOCASE
) STRICT;

CREATE TABLE CLAVES (
    Usuario TEXT COLLATE NOCASE NOT NULL PRIMARY KEY,
    Tipo    TEXT COLLATE NOCASE
) STRICT;

CREATE TABLE CONT (
    Tip_doc_d    INTEGER NOT NULL,
    Doc_id_d     TEXT COLLATE NOCASE NOT NULL,
    Nombre       TEXT COLLATE NOCASE,
    Usuario      TEXT COLLATE NOCASE,
    Tipo_Ingreso INTEGER,
    PRIMARY KEY (Doc_id_d, Tip_doc_d)
) STRICT;

CREATE TABLE SPOOL (
    CodRep    TEXT COLLATE NOCASE NOT NULL,
    Secuencia TEXT COLLATE NOCASE NOT NULL,
    Archivo   TEXT COLLATE NOCASE,
    Fecha     TEXT COLLATE NOCASE,
    Usuario   TEXT COLLATE NOCASE,
    tip_doc_d INTEGER,
    Doc_id_d  TEXT COLLATE NOCASE,
    PRIMARY KEY (CodRep, Secuencia)
) STRICT;

CREATE TABLE CAB (
    Doc_id_d   TEXT COLLATE NOCASE NOT NULL,
    tip_doc_d  INTEGER NOT NULL,
    periodo    TEXT COLLATE NOCASE NOT NULL,
    Formulario TEXT COLLATE NOCASE NOT NULL,
    fec_pro    TEXT COLLATE NOCASE,
    bcolibrad  TEXT COLLATE NOCASE,
    nrocheque  TEXT COLLATE NOCASE,
    cheque     TEXT COLLATE NOCASE,
    efectivo   TEXT COLLATE NOCASE,
    estado     INTEGER,
    rectifica  TEXT COLLATE NOCASE,
    cNumero    TEXT COLLATE NOCASE,
    PRIMARY KEY (Doc_id_d, periodo, Formulario, tip_doc_d)
) STRICT;

CREATE TABLE HCAB (
    Doc_id_d   TEXT COLLATE NOCASE NOT NULL,
    tip_doc_d  INTEGER NOT NULL,
    periodo    TEXT COLLATE NOCASE NOT NULL,
    Formulario TEXT COLLATE NOCASE NOT NULL,
    fec_pro    TEXT COLLATE NOCASE,
    bcolibrad  TEXT COLLATE NOCASE,
    nrocheque  TEXT COLLATE NOCASE,
    cheque     TEXT COLLATE NOCASE,
    efectivo   TEXT COLLATE NOCASE,
    estado     INTEGER,
    rectifica  TEXT COLLATE NOCASE,
    norden     TEXT COLLATE NOCASE,
    fec_env    TEXT COLLATE NOCASE,
    control    TEXT COLLATE NOCASE,
    correl     TEXT COLLATE NOCASE NOT NULL,
    cNumero    TEXT COLLATE NOCASE,
    PRIMARY KEY (Doc_id_d, periodo, Formulario, correl, tip_doc_d)
) STRICT;

CREATE TABLE DET (
    Doc_id_d   TEXT COLLATE NOCASE NOT NULL,
    tip_doc_d  INTEGER NOT NULL,
    periodo    TEXT COLLATE NOCASE NOT NULL,
    Formulario TEXT COLLATE NOCASE NOT NULL,
    Casilla    TEXT COLLATE NOCASE NOT NULL,
    i_valor    TEXT COLLATE NOCASE,
    idcasilla  TEXT COLLATE NOCASE,
    cNumero    TEXT COLLATE NOCASE,
    PRIMARY KEY (Doc_id_d, periodo, Formulario, Casilla, tip_doc_d)
) STRICT;

CREATE TABLE HDET (
    Doc_id_d   TEXT COLLATE NOCASE NOT NULL,
    tip_doc_d  INTEGER NOT NULL,
    periodo    TEXT COLLATE NOCASE NOT NULL,
    Formulario TEXT COLLATE NOCASE NOT NULL,
    Casilla    TEXT COLLATE NOCASE NOT NULL,
    i_valor    TEXT COLLATE NOCASE,
    idcasilla  TEXT COLLATE NOCASE,
    correl     TEXT COLLATE NOCASE NOT NULL,
    cNumero    TEXT COLLATE NOCASE,
    PRIMARY KEY (Doc_id_d, periodo, Formulario, correl, Casilla, tip_doc_d)
) STRICT;
