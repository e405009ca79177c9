-- From version 3 of the catalogue file to 4. Each section has one change: its tables, indexes and
-- triggers, as they stand in schema.sql, indexes.sql and triggers.sql, and its figures of
-- statistics.sql.

-- Drafts of what is being edited.

CREATE TABLE tblDraft(
    draftID INTEGER PRIMARY KEY AUTOINCREMENT,
    savedOn TEXT NOT NULL COLLATE CATNC,
    kind INTEGER NOT NULL,
    ownerID INTEGER NOT NULL,
    name TEXT NOT NULL COLLATE CATNC
);

CREATE TABLE tblDraftText(
    draftID INTEGER NOT NULL,
    field TEXT NOT NULL COLLATE CATNC,
    text TEXT NOT NULL COLLATE CATNC,
    loaded TEXT COLLATE CATNC
);

CREATE UNIQUE INDEX ixDraftText ON tblDraftText(draftID, field);

CREATE TRIGGER trgDraftDeleted AFTER DELETE ON tblDraft
BEGIN
    DELETE FROM tblDraftText WHERE draftID = old.draftID;
END;

INSERT INTO sqlite_stat1(tbl, idx, stat) VALUES
    ('tblDraft', NULL, '5'),
    ('tblDraftText', 'ixDraftText', '50 10 1');
