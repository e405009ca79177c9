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

-- The last line: the figures count from here on.
ANALYZE sqlite_schema;
