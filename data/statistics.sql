-- What the query planner believes about the sizes of tables and indexes: a large catalogue, a
-- million procedures in 50,000 classes, the same numbers for every user. Figures taken from a
-- user's own file would let the same search start from another table, and run a thousand times
-- longer, after some import. So nothing ever analyses a user's file.
--
-- That of tblAuthor is not what a large catalogue has, but what makes the planner do the right thing:
-- a search for authors starts from them, however many there are.
--
-- A row says how many entries an index has, and how many of them one value of its first column has
-- on average, one value of its first two columns, and so on. ANALYZE on the empty tables only makes
-- the table for them.

ANALYZE;
DELETE FROM sqlite_stat1;
INSERT INTO sqlite_stat1(tbl, idx, stat) VALUES
    ('tblApplication', 'ixAppName', '2000 1'),
    ('tblApplication', 'ixAppPath', '2000 1 1'),
    ('tblApplication', 'ixAppKeyword', '600 1'),
    ('tblClass', 'ixClassApp', '50000 25 1 1 1'),
    ('tblClass', 'ixClassKeyword', '50000 6 6 6 1'),
    ('tblClass', 'ixClassLanguage', '50000 6000 3 1 1'),
    ('tblClass', 'ixClassComment', '20000 1 1 1 1'),
    ('tblCode', 'ixCodeClass', '1000000 20 1 1'),
    ('tblCode', 'ixCodeKeyword', '300000 3 3 1'),
    ('tblCode', 'ixCodeName', '1000000 2 1'),
    ('tblCode', 'ixShortComment', '100 2'),
    ('tblKeyword', NULL, '40000'),
    ('tblSearchWord', 'ixSearchWord', '20000 1'),
    ('tblKeyword_link_searchWord', 'tblKeyword_link_searchWord', '1600000 4 1'),
    ('tblKeyword_link_searchWord', 'ixWordKeywords', '1600000 13'),
    ('tblSeparator', NULL, '5'),
    ('tblAuthor', 'ixAuthorName', '100 1 1 1'),
    ('tbl_Author_Link', 'ixAuthorOwners', '400000 200 100 1'),
    ('tbl_Author_Link', 'ixOwnerAuthors', '400000 8 4 1'),
    ('tblDate', 'ixDate', '1000 1'),
    ('tbl_date_link', 'tbl_date_link', '500000 8 2 1'),
    ('tbl_date_link', 'ixDateOwners', '500000 120 60 1'),
    ('tblLanguage', NULL, '20'),
    ('tblCode_Link_Language', 'tblCode_Link_Language', '1000000 1'),
    ('tblCode_Link_Language', 'ixLanguageCodes', '1000000 100000'),
    ('tblFavorite', 'ixFavoriteClass', '100 2'),
    ('tblFavorite', 'ixFavoriteCode', '100 2'),
    ('tblCommonWord', 'ixCommonWord', '120 1'),
    ('tblWindowSize', NULL, '1'),
    ('tblNamedQuery', 'tblNamedQuery', '100 1'),
    ('tblSetting', 'tblSetting', '20 1'),
    ('tblSourceForm', NULL, '50000'),
    ('tblOverlong', 'ixOverlong', '100 1 1 1'),
    ('tblTrash', NULL, '10'),
    ('tblTrashApplication', 'ixTrashApplication', '100 10 1'),
    ('tblTrashClass', 'ixTrashClass', '20000 2000 1'),
    ('tblTrashCode', 'ixTrashCode', '400000 40000 1'),
    ('tblTrashKeyword', 'ixTrashKeyword', '20000 2000 1'),
    ('tblTrashSearchWord', 'ixTrashSearchWord', '10000 1000 1'),
    ('tblTrashKeywordWord', 'ixTrashKeywordWord', '800000 80000 40'),
    ('tblTrashAuthor', 'ixTrashAuthor', '100 10 1'),
    ('tblTrashAuthorLink', 'ixTrashAuthorLink', '200000 20000'),
    ('tblTrashDate', 'ixTrashDate', '1000 100 1'),
    ('tblTrashDateLink', 'ixTrashDateLink', '200000 20000'),
    ('tblTrashLanguage', 'ixTrashLanguage', '100 10 1'),
    ('tblTrashCodeLanguage', 'ixTrashCodeLanguage', '400000 40000 1'),
    ('tblTrashFavorite', 'ixTrashFavorite', '100 10'),
    ('tblTrashSourceForm', 'ixTrashSourceForm', '20000 2000'),
    ('tblTrashOverlong', 'ixTrashOverlong', '100 10'),
    ('tblClassesToEmpty', NULL, '25'),
    ('tblTextIndex', NULL, '4'),
    ('tblTextSegment', NULL, '30'),
    ('tblTextBlock', NULL, '100000'),
    ('tblTextDirty', 'tblTextDirty', '100 40 1'),
    ('tblNameBlock', 'ixNameBlock', '1000 300 1'),
    ('tblDraft', NULL, '5'),
    ('tblDraftText', 'ixDraftText', '50 10 1');
ANALYZE sqlite_schema;
