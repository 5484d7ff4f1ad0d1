-- A declaration that isn't saved yet: beside the work tables, which hold its detail, one row says whose they are and keeps
-- what was typed in the form. Those that were put aside stand below, each with a copy of the three tables' rows under its
-- number. The names begin as those of the work tables do, since each seat of a server has its own.

CREATE TABLE TMPF518SINGRABAR (
    Version    INTEGER NOT NULL,
    Nueva      INTEGER NOT NULL,
    Doc_id_d   TEXT COLLATE NOCASE NOT NULL,
    periodo    TEXT COLLATE NOCASE NOT NULL,
    Formulario TEXT COLLATE NOCASE NOT NULL,
    Guardado   TEXT COLLATE NOCASE NOT NULL,
    Escrito    TEXT COLLATE NOCASE NOT NULL,
    Usuario    TEXT COLLATE NOCASE NOT NULL,
    Equipo     TEXT COLLATE NOCASE NOT NULL,
    Momento    TEXT COLLATE NOCASE NOT NULL
) STRICT;

CREATE TABLE TMPF518APARTADA (
    Copia      INTEGER NOT NULL,
    Apartada   TEXT COLLATE NOCASE NOT NULL,
    Nombre     TEXT COLLATE NOCASE NOT NULL,
    Version    INTEGER NOT NULL,
    Nueva      INTEGER NOT NULL,
    Doc_id_d   TEXT COLLATE NOCASE NOT NULL,
    periodo    TEXT COLLATE NOCASE NOT NULL,
    Formulario TEXT COLLATE NOCASE NOT NULL,
    Guardado   TEXT COLLATE NOCASE NOT NULL,
    Escrito    TEXT COLLATE NOCASE NOT NULL,
    Usuario    TEXT COLLATE NOCASE NOT NULL,
    Equipo     TEXT COLLATE NOCASE NOT NULL,
    Momento    TEXT COLLATE NOCASE NOT NULL,
    PRIMARY KEY (Copia)
) STRICT;

CREATE TABLE TMPF518APCAB (
    Copia          INTEGER NOT NULL,
    tip_doc_per    INTEGER NOT NULL,
    num_doc_per    TEXT COLLATE NOCASE NOT NULL,
    des_razon      TEXT COLLATE NOCASE,
    des_apellido_p TEXT COLLATE NOCASE,
    des_apellido_m TEXT COLLATE NOCASE,
    des_nombres    TEXT COLLATE NOCASE,
    ctd_docs       TEXT COLLATE NOCASE,
    mto_base_p     TEXT COLLATE NOCASE,
    mto_imp_p      TEXT COLLATE NOCASE,
    ind_ruc        INTEGER,
    PRIMARY KEY (Copia, tip_doc_per, num_doc_per)
) STRICT;

CREATE TABLE TMPF518APDET (
    Copia          INTEGER NOT NULL,
    tip_doc_per    INTEGER NOT NULL,
    num_doc_per    TEXT COLLATE NOCASE NOT NULL,
    num_serie_cp   TEXT COLLATE NOCASE NOT NULL,
    num_cp         TEXT COLLATE NOCASE NOT NULL,
    tip_cp         TEXT COLLATE NOCASE NOT NULL,
    cp_fact        TEXT COLLATE NOCASE,
    lista_clie     TEXT COLLATE NOCASE,
    med_pago       TEXT COLLATE NOCASE,
    fec_emision_cp TEXT COLLATE NOCASE,
    mto_base_p     TEXT COLLATE NOCASE,
    mto_imp_p      TEXT COLLATE NOCASE,
    por_tasa_p     TEXT COLLATE NOCASE,
    PRIMARY KEY (Copia, tip_doc_per, num_doc_per, num_serie_cp, num_cp, tip_cp)
) STRICT;

CREATE TABLE TMPF518APDETCP (
    Copia           INTEGER NOT NULL,
    tip_doc_per     INTEGER NOT NULL,
    num_doc_per     TEXT COLLATE NOCASE NOT NULL,
    num_serie_cp    TEXT COLLATE NOCASE NOT NULL,
    num_cp          TEXT COLLATE NOCASE NOT NULL,
    tip_doc_detcp   TEXT COLLATE NOCASE NOT NULL,
    num_serie_detcp TEXT COLLATE NOCASE NOT NULL,
    num_detcp       TEXT COLLATE NOCASE NOT NULL,
    fec_emis_detcp  TEXT COLLATE NOCASE,
    mto_detcp       TEXT COLLATE NOCASE,
    PRIMARY KEY (Copia, tip_doc_per, num_doc_per, num_serie_cp, num_cp, tip_doc_detcp, num_serie_detcp, num_detcp)
) STRICT;
