-- The tables that the text index knows, with nothing in it yet.
INSERT INTO tblTextIndex(ownerTableID, indexedTo, segments) VALUES
    (1, 0, 0),
    (2, 0, 0),
    (3, 0, 0),
    (4, 0, 0);
