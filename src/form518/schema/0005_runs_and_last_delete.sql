-- What stands beside the work tables of form 0518 so that an import, and the last delete, can be undone. All of it goes
-- when the work tables are emptied. Rows of a work table are told by the number of their entry, which no later row of
-- the same declaration gets again.

-- The imports that have added rows: the file, and for each work table the last number before the run and the last of
-- the run, which is missing as long as the run has not come to its end.
CREATE TABLE TMPF518CORRIDA (
    corrida      INTEGER NOT NULL PRIMARY KEY,
    archivo      TEXT COLLATE NOCASE NOT NULL,
    huella       TEXT COLLATE NOCASE NOT NULL,
    bytes        TEXT COLLATE NOCASE NOT NULL,
    hora         TEXT COLLATE NOCASE NOT NULL,
    usuario      TEXT COLLATE NOCASE NOT NULL,
    fin          TEXT COLLATE NOCASE,
    transferidos INTEGER,
    rechazados   INTEGER,
    desde_cab    INTEGER NOT NULL,
    desde_det    INTEGER NOT NULL,
    desde_cp     INTEGER NOT NULL,
    hasta_cab    INTEGER,
    hasta_det    INTEGER,
    hasta_cp     INTEGER,
    filas_cab    INTEGER,
    filas_det    INTEGER,
    filas_cp     INTEGER
) STRICT;

-- The totals of the clients that were there before a run; tocado is 1 when vouchers of the client were entered, changed
-- or deleted by hand after it, so that its totals have to be summed anew.
CREATE TABLE TMPF518PREVIO (
    corrida    INTEGER NOT NULL,
    orden      INTEGER NOT NULL,
    ctd_docs   TEXT COLLATE NOCASE,
    mto_base_p TEXT COLLATE NOCASE,
    mto_imp_p  TEXT COLLATE NOCASE,
    tocado     INTEGER NOT NULL,
    PRIMARY KEY (orden, corrida)
) STRICT;

-- The rows of a run that were changed by hand after it.
CREATE TABLE TMPF518MANO (
    tabla TEXT COLLATE NOCASE NOT NULL,
    orden INTEGER NOT NULL,
    PRIMARY KEY (tabla, orden)
) STRICT;

-- The last delete: the rows of each work table that it took away, with their numbers.
CREATE TABLE TMPF518BCAB (
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
    orden          INTEGER NOT NULL PRIMARY KEY
) STRICT;

CREATE TABLE TMPF518BDET (
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
    orden          INTEGER NOT NULL PRIMARY KEY
) STRICT;

CREATE TABLE TMPF518BDETCP (
    tip_doc_per     INTEGER NOT NULL,
    num_doc_per     TEXT COLLATE NOCASE NOT NULL,
    num_serie_cp    TEXT COLLATE NOCASE NOT NULL,
    num_cp          TEXT COLLATE NOCASE NOT NULL,
    tip_doc_detcp   TEXT COLLATE NOCASE NOT NULL,
    num_serie_detcp TEXT COLLATE NOCASE NOT NULL,
    num_detcp       TEXT COLLATE NOCASE NOT NULL,
    fec_emis_detcp  TEXT COLLATE NOCASE,
    mto_detcp       TEXT COLLATE NOCASE,
    orden           INTEGER NOT NULL PRIMARY KEY
) STRICT;
