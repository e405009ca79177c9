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

-- Links of search words without numbers of their own, each once.

CREATE TABLE tblKeywordLinksBefore AS
SELECT keywordID, searchWordID FROM tblKeyword_link_searchWord ORDER BY keywordID, searchWordID;

DROP TABLE tblKeyword_link_searchWord;

CREATE TABLE tblKeyword_link_searchWord(
    keywordID INTEGER NOT NULL,
    searchWordID INTEGER NOT NULL,
    PRIMARY KEY (keywordID, searchWordID) ON CONFLICT IGNORE
) WITHOUT ROWID;

INSERT INTO tblKeyword_link_searchWord SELECT keywordID, searchWordID FROM tblKeywordLinksBefore;

DROP TABLE tblKeywordLinksBefore;

CREATE INDEX ixWordKeywords ON tblKeyword_link_searchWord(searchWordID);

INSERT INTO sqlite_stat1(tbl, idx, stat) VALUES
    ('tblKeyword_link_searchWord', 'tblKeyword_link_searchWord', '1600000 4 1'),
    ('tblKeyword_link_searchWord', 'ixWordKeywords', '1600000 13');

-- Fewer indexes that follow the keywords of procedures.

DROP INDEX ixCodeKeyword;
DROP INDEX ixCodeName;

CREATE INDEX ixCodeKeyword ON tblCode(keywordID, classID, codeName) WHERE keywordID IS NOT NULL;
CREATE INDEX ixCodeName ON tblCode(codeName, classID);

INSERT INTO sqlite_stat1(tbl, idx, stat) VALUES
    ('tblCode', 'ixCodeKeyword', '300000 3 3 1'),
    ('tblCode', 'ixCodeName', '1000000 2 1');

-- What follows a deleted keyword, without beginning an UPDATE that finds nothing.

DROP TRIGGER trgKeywordDeleted;

CREATE TRIGGER trgApplicationKeywordDeleted AFTER DELETE ON tblKeyword
WHEN EXISTS (SELECT 1 FROM tblApplication WHERE keywordID = old.keywordID)
BEGIN
    UPDATE tblApplication SET keywordID = NULL WHERE keywordID = old.keywordID;
END;

CREATE TRIGGER trgClassKeywordDeleted AFTER DELETE ON tblKeyword
WHEN EXISTS (SELECT 1 FROM tblClass WHERE keywordID = old.keywordID)
BEGIN
    UPDATE tblClass SET keywordID = NULL WHERE keywordID = old.keywordID;
END;

CREATE TRIGGER trgCodeKeywordDeleted AFTER DELETE ON tblKeyword
WHEN EXISTS (
    SELECT 1 FROM tblCode
    WHERE keywordID = old.keywordID
        AND classID NOT IN (SELECT classID FROM tblClassesToEmpty))
BEGIN
    UPDATE tblCode SET keywordID = NULL
    WHERE keywordID = old.keywordID
        AND classID NOT IN (SELECT classID FROM tblClassesToEmpty);
END;

CREATE TRIGGER trgKeywordLinksDeleted AFTER DELETE ON tblKeyword
WHEN EXISTS (SELECT 1 FROM tblKeyword_link_searchWord WHERE keywordID = old.keywordID)
BEGIN
    DELETE FROM tblKeyword_link_searchWord WHERE keywordID = old.keywordID;
END;

-- Packed names with their key in an index of its own. They are packed anew when the file is opened.

DROP TABLE tblNameBlock;

CREATE TABLE tblNameBlock(
    ownerTableID INTEGER NOT NULL,
    block INTEGER NOT NULL,
    entries TEXT NOT NULL COLLATE CATNC,
    names TEXT NOT NULL COLLATE CATNC
);

CREATE UNIQUE INDEX ixNameBlock ON tblNameBlock(ownerTableID, block);

INSERT INTO sqlite_stat1(tbl, idx, stat) VALUES
    ('tblNameBlock', 'ixNameBlock', '1000 300 1');

-- The last line: the figures count from here on.
ANALYZE sqlite_schema;
