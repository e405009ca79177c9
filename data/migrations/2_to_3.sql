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

CREATE TRIGGER trgKeywordTextAdded AFTER INSERT ON tblKeyword
WHEN new.keywordID <= (SELECT indexedTo FROM tblTextIndex WHERE ownerTableID = 4)
BEGIN
    INSERT OR IGNORE INTO tblTextDirty VALUES (4, new.keywordID);
END;

CREATE TRIGGER trgKeywordTextChanged AFTER UPDATE OF keywordID, keyword ON tblKeyword
WHEN new.keywordID <= (SELECT indexedTo FROM tblTextIndex WHERE ownerTableID = 4)
BEGIN
    INSERT OR IGNORE INTO tblTextDirty VALUES (4, new.keywordID);
END;

INSERT INTO tblTextIndex(ownerTableID, indexedTo, segments) VALUES (1, 0, 0), (2, 0, 0), (3, 0, 0), (4, 0, 0);

INSERT INTO sqlite_stat1(tbl, idx, stat) VALUES
    ('tblTextIndex', NULL, '4'),
    ('tblTextSegment', NULL, '30'),
    ('tblTextBlock', NULL, '100000'),
    ('tblTextDirty', 'tblTextDirty', '100 40 1');

-- The names packed for quick search. Blocks that are full are made now, so that the first search
-- need not read them from their tables.

CREATE TABLE tblNameBlock(
    ownerTableID INTEGER NOT NULL,
    block INTEGER NOT NULL,
    entries TEXT NOT NULL COLLATE CATNC,
    names TEXT NOT NULL COLLATE CATNC,
    PRIMARY KEY (ownerTableID, block)
) WITHOUT ROWID;

CREATE TRIGGER trgApplicationBlockFull AFTER INSERT ON tblApplication
WHEN new.appID % 1024 = 0 AND NOT EXISTS (
    SELECT 1 FROM tblNameBlock WHERE ownerTableID = 1 AND block = new.appID / 1024 - 1)
BEGIN
    INSERT INTO tblNameBlock(ownerTableID, block, entries, names)
    SELECT 1, new.appID / 1024 - 1,
        group_concat(substr('000' || (appID % 1024), -4)
            || substr('000' || length(CAST(appName AS BLOB)), -4), ''),
        group_concat(appName, '
')
    FROM tblApplication
    WHERE appID BETWEEN new.appID - 1024 AND new.appID - 1
    GROUP BY appID / 1024;
END;

CREATE TRIGGER trgApplicationNameAdded AFTER INSERT ON tblApplication
WHEN EXISTS (
    SELECT 1 FROM tblNameBlock WHERE ownerTableID = 1 AND block = new.appID / 1024)
BEGIN
    DELETE FROM tblNameBlock WHERE ownerTableID = 1 AND block = new.appID / 1024;
END;

CREATE TRIGGER trgApplicationRenamed AFTER UPDATE OF appName ON tblApplication
WHEN new.appName <> old.appName COLLATE BINARY AND EXISTS (
    SELECT 1 FROM tblNameBlock WHERE ownerTableID = 1 AND block = new.appID / 1024)
BEGIN
    DELETE FROM tblNameBlock WHERE ownerTableID = 1 AND block = new.appID / 1024;
END;

CREATE TRIGGER trgApplicationNameRemoved AFTER DELETE ON tblApplication
WHEN EXISTS (
    SELECT 1 FROM tblNameBlock WHERE ownerTableID = 1 AND block = old.appID / 1024)
BEGIN
    DELETE FROM tblNameBlock WHERE ownerTableID = 1 AND block = old.appID / 1024;
END;

CREATE TRIGGER trgClassBlockFull AFTER INSERT ON tblClass
WHEN new.classID % 1024 = 0 AND NOT EXISTS (
    SELECT 1 FROM tblNameBlock WHERE ownerTableID = 2 AND block = new.classID / 1024 - 1)
BEGIN
    INSERT INTO tblNameBlock(ownerTableID, block, entries, names)
    SELECT 2, new.classID / 1024 - 1,
        group_concat(substr('000' || (classID % 1024), -4)
            || substr('000' || length(CAST(className AS BLOB)), -4), ''),
        group_concat(className, '
')
    FROM tblClass
    WHERE classID BETWEEN new.classID - 1024 AND new.classID - 1
    GROUP BY classID / 1024;
END;

CREATE TRIGGER trgClassNameAdded AFTER INSERT ON tblClass
WHEN EXISTS (
    SELECT 1 FROM tblNameBlock WHERE ownerTableID = 2 AND block = new.classID / 1024)
BEGIN
    DELETE FROM tblNameBlock WHERE ownerTableID = 2 AND block = new.classID / 1024;
END;

CREATE TRIGGER trgClassRenamed AFTER UPDATE OF className ON tblClass
WHEN new.className <> old.className COLLATE BINARY AND EXISTS (
    SELECT 1 FROM tblNameBlock WHERE ownerTableID = 2 AND block = new.classID / 1024)
BEGIN
    DELETE FROM tblNameBlock WHERE ownerTableID = 2 AND block = new.classID / 1024;
END;

CREATE TRIGGER trgClassNameRemoved AFTER DELETE ON tblClass
WHEN EXISTS (
    SELECT 1 FROM tblNameBlock WHERE ownerTableID = 2 AND block = old.classID / 1024)
BEGIN
    DELETE FROM tblNameBlock WHERE ownerTableID = 2 AND block = old.classID / 1024;
END;

CREATE TRIGGER trgCodeBlockFull AFTER INSERT ON tblCode
WHEN new.codeID % 1024 = 0 AND NOT EXISTS (
    SELECT 1 FROM tblNameBlock WHERE ownerTableID = 3 AND block = new.codeID / 1024 - 1)
BEGIN
    INSERT INTO tblNameBlock(ownerTableID, block, entries, names)
    SELECT 3, new.codeID / 1024 - 1,
        group_concat(substr('000' || (codeID % 1024), -4)
            || substr('000' || length(CAST(codeName AS BLOB)), -4), ''),
        group_concat(codeName, '
')
    FROM tblCode
    WHERE codeID BETWEEN new.codeID - 1024 AND new.codeID - 1
    GROUP BY codeID / 1024;
END;

CREATE TRIGGER trgCodeNameAdded AFTER INSERT ON tblCode
WHEN EXISTS (
    SELECT 1 FROM tblNameBlock WHERE ownerTableID = 3 AND block = new.codeID / 1024)
BEGIN
    DELETE FROM tblNameBlock WHERE ownerTableID = 3 AND block = new.codeID / 1024;
END;

CREATE TRIGGER trgCodeRenamed AFTER UPDATE OF codeName ON tblCode
WHEN new.codeName <> old.codeName COLLATE BINARY AND EXISTS (
    SELECT 1 FROM tblNameBlock WHERE ownerTableID = 3 AND block = new.codeID / 1024)
BEGIN
    DELETE FROM tblNameBlock WHERE ownerTableID = 3 AND block = new.codeID / 1024;
END;

CREATE TRIGGER trgCodeNameRemoved AFTER DELETE ON tblCode
WHEN EXISTS (
    SELECT 1 FROM tblNameBlock WHERE ownerTableID = 3 AND block = old.codeID / 1024)
BEGIN
    DELETE FROM tblNameBlock WHERE ownerTableID = 3 AND block = old.codeID / 1024;
END;

INSERT INTO tblNameBlock(ownerTableID, block, entries, names)
SELECT 1, appID / 1024,
    group_concat(substr('000' || (appID % 1024), -4)
        || substr('000' || length(CAST(appName AS BLOB)), -4), ''),
    group_concat(appName, '
')
FROM (SELECT appID, appName FROM tblApplication NOT INDEXED ORDER BY appID)
GROUP BY appID / 1024
HAVING appID / 1024 < (SELECT max(appID) / 1024 FROM tblApplication);

INSERT INTO tblNameBlock(ownerTableID, block, entries, names)
SELECT 2, classID / 1024,
    group_concat(substr('000' || (classID % 1024), -4)
        || substr('000' || length(CAST(className AS BLOB)), -4), ''),
    group_concat(className, '
')
FROM (SELECT classID, className FROM tblClass NOT INDEXED ORDER BY classID)
GROUP BY classID / 1024
HAVING classID / 1024 < (SELECT max(classID) / 1024 FROM tblClass);

INSERT INTO tblNameBlock(ownerTableID, block, entries, names)
SELECT 3, codeID / 1024,
    group_concat(substr('000' || (codeID % 1024), -4)
        || substr('000' || length(CAST(codeName AS BLOB)), -4), ''),
    group_concat(codeName, '
')
FROM (SELECT codeID, codeName FROM tblCode NOT INDEXED ORDER BY codeID)
GROUP BY codeID / 1024
HAVING codeID / 1024 < (SELECT max(codeID) / 1024 FROM tblCode);

INSERT INTO sqlite_stat1(tbl, idx, stat) VALUES
    ('tblNameBlock', 'tblNameBlock', '1000 300 1');

-- The last line: the figures count from here on.
ANALYZE sqlite_schema;
