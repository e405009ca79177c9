-- From version 2 of the catalogue file to 3. Each section has one change: its tables, indexes and
-- triggers, as they stand in schema.sql, indexes.sql and triggers.sql, and its figures of
-- statistics.sql.

-- Deleting all procedures of a class without taking their keywords from them first.

CREATE TABLE tblClassesToEmpty(
    classID INTEGER PRIMARY KEY
);

DROP TRIGGER trgKeywordDeleted;

CREATE TRIGGER trgKeywordDeleted AFTER DELETE ON tblKeyword
BEGIN
    UPDATE tblApplication SET keywordID = NULL WHERE keywordID = old.keywordID;
    UPDATE tblClass SET keywordID = NULL WHERE keywordID = old.keywordID;
    UPDATE tblCode SET keywordID = NULL
    WHERE keywordID = old.keywordID
        AND classID NOT IN (SELECT classID FROM tblClassesToEmpty);
    DELETE FROM tblKeyword_link_searchWord WHERE keywordID = old.keywordID;
END;

CREATE TRIGGER trgKeywordAdded AFTER INSERT ON tblKeyword
WHEN EXISTS (SELECT 1 FROM tblClassesToEmpty)
BEGIN
    UPDATE tblCode SET keywordID = NULL
    WHERE keywordID = new.keywordID
        AND classID IN (SELECT classID FROM tblClassesToEmpty);
END;

CREATE TRIGGER trgClassEmptied AFTER DELETE ON tblClassesToEmpty
BEGIN
    UPDATE tblCode SET keywordID = NULL
    WHERE classID = old.classID AND keywordID IS NOT NULL
        AND keywordID NOT IN (SELECT keywordID FROM tblKeyword);
END;

INSERT INTO sqlite_stat1(tbl, idx, stat) VALUES
    ('tblClassesToEmpty', NULL, '25');

-- An index of texts. It is empty at first and filled by and by.

CREATE TABLE tblTextIndex(
    ownerTableID INTEGER PRIMARY KEY,
    indexedTo INTEGER NOT NULL,
    segments INTEGER NOT NULL
);

CREATE TABLE tblTextSegment(
    segmentID INTEGER PRIMARY KEY,
    ownerTableID INTEGER NOT NULL,
    state INTEGER NOT NULL,
    firstID INTEGER NOT NULL,
    rows INTEGER NOT NULL,
    bytes INTEGER NOT NULL
);

CREATE TABLE tblTextBlock(
    blockID INTEGER PRIMARY KEY,
    block BLOB NOT NULL
);

CREATE TABLE tblTextDirty(
    ownerTableID INTEGER NOT NULL,
    ownerID INTEGER NOT NULL,
    PRIMARY KEY (ownerTableID, ownerID)
) WITHOUT ROWID;

CREATE TRIGGER trgApplicationTextAdded AFTER INSERT ON tblApplication
WHEN new.appID <= (SELECT indexedTo FROM tblTextIndex WHERE ownerTableID = 1)
BEGIN
    INSERT OR IGNORE INTO tblTextDirty VALUES (1, new.appID);
END;

CREATE TRIGGER trgApplicationTextChanged AFTER UPDATE OF appID, appName, appComment ON tblApplication
WHEN new.appID <= (SELECT indexedTo FROM tblTextIndex WHERE ownerTableID = 1)
BEGIN
    INSERT OR IGNORE INTO tblTextDirty VALUES (1, new.appID);
END;

CREATE TRIGGER trgClassTextAdded AFTER INSERT ON tblClass
WHEN new.classID <= (SELECT indexedTo FROM tblTextIndex WHERE ownerTableID = 2)
BEGIN
    INSERT OR IGNORE INTO tblTextDirty VALUES (2, new.classID);
END;

CREATE TRIGGER trgClassTextChanged AFTER UPDATE OF classID, className, classDI, classComment ON tblClass
WHEN new.classID <= (SELECT indexedTo FROM tblTextIndex WHERE ownerTableID = 2)
BEGIN
    INSERT OR IGNORE INTO tblTextDirty VALUES (2, new.classID);
END;

CREATE TRIGGER trgCodeTextAdded AFTER INSERT ON tblCode
WHEN new.codeID <= (SELECT indexedTo FROM tblTextIndex WHERE ownerTableID = 3)
BEGIN
    INSERT OR IGNORE INTO tblTextDirty VALUES (3, new.codeID);
END;

CREATE TRIGGER trgCodeTextChanged AFTER UPDATE OF codeID, codeName, code, codeComment ON tblCode
WHEN new.codeID <= (SELECT indexedTo FROM tblTextIndex WHERE ownerTableID = 3)
BEGIN
    INSERT OR IGNORE INTO tblTextDirty VALUES (3, new.codeID);
END;

INSERT INTO tblTextIndex(ownerTableID, indexedTo, segments) VALUES (1, 0, 0), (2, 0, 0), (3, 0, 0);

INSERT INTO sqlite_stat1(tbl, idx, stat) VALUES
    ('tblTextIndex', NULL, '3'),
    ('tblTextSegment', NULL, '30'),
    ('tblTextBlock', NULL, '100000'),
    ('tblTextDirty', 'tblTextDirty', '100 40 1');

-- The last line: the figures count from here on.
ANALYZE sqlite_schema;
