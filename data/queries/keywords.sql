-- Stored queries on keyword texts, their separators and their search words.

-- name: qryKeywordByID(keywordID I)
SELECT keyword, keywordID, separatorID
FROM tblKeyword
WHERE keywordID = [keywordID];

-- name: qryKeywordIDByAppID(appID I)
SELECT keywordID
FROM tblApplication
WHERE appID = [appID];

-- name: qryKeywordIDByClassID(classID I)
SELECT keywordID
FROM tblClass
WHERE classID = [classID];

-- name: qryKeywordIDByCodeID(codeID I)
SELECT keywordID
FROM tblCode
WHERE codeID = [codeID];

-- The keywords of the procedures of a class that has just been copied.
-- name: qryKeywordIDFromTblCodeByClassID(newClassID I)
SELECT keywordID, codeID
FROM tblCode
WHERE classID = [newClassID] AND keywordID IS NOT NULL
ORDER BY codeID;

-- An owner's keyword text; searchWords are its search words with blanks between them.
-- name: qryKeywordRSWithAppID(appID I)
SELECT k.keywordID, k.keyword, k.separatorID, sep.separator, sep.separatorDescription,
    (SELECT group_concat(sw.searchWord, ' ')
     FROM tblKeyword_link_searchWord kl
         INNER JOIN tblSearchWord sw ON kl.searchWordID = sw.searchWordID
     WHERE kl.keywordID = k.keywordID) AS searchWords
FROM (tblApplication a INNER JOIN tblKeyword k ON a.keywordID = k.keywordID)
    LEFT JOIN tblSeparator sep ON k.separatorID = sep.separatorID
WHERE a.appID = [appID];

-- name: qryKeywordRSWithClassID(classID I)
SELECT k.keywordID, k.keyword, k.separatorID, sep.separator, sep.separatorDescription,
    (SELECT group_concat(sw.searchWord, ' ')
     FROM tblKeyword_link_searchWord kl
         INNER JOIN tblSearchWord sw ON kl.searchWordID = sw.searchWordID
     WHERE kl.keywordID = k.keywordID) AS searchWords
FROM (tblClass cls INNER JOIN tblKeyword k ON cls.keywordID = k.keywordID)
    LEFT JOIN tblSeparator sep ON k.separatorID = sep.separatorID
WHERE cls.classID = [classID];

-- name: qryKeywordRSWithCodeID(codeID I)
SELECT k.keywordID, k.keyword, k.separatorID, sep.separator, sep.separatorDescription,
    (SELECT group_concat(sw.searchWord, ' ')
     FROM tblKeyword_link_searchWord kl
         INNER JOIN tblSearchWord sw ON kl.searchWordID = sw.searchWordID
     WHERE kl.keywordID = k.keywordID) AS searchWords
FROM (tblCode cd INNER JOIN tblKeyword k ON cd.keywordID = k.keywordID)
    LEFT JOIN tblSeparator sep ON k.separatorID = sep.separatorID
WHERE cd.codeID = [codeID];

-- name: qrySeparatorByID(separatorID I)
SELECT separator
FROM tblSeparator
WHERE separatorID = [separatorID];

-- The keyword texts that hold a search word.
-- name: qrySeparatorKeywordSearchWordsBySearchWords(searchWord T50)
SELECT sep.separator, k.keyword,
    (SELECT group_concat(other.searchWord, ' ')
     FROM tblKeyword_link_searchWord otherKl
         INNER JOIN tblSearchWord other ON otherKl.searchWordID = other.searchWordID
     WHERE otherKl.keywordID = k.keywordID) AS searchWords,
    k.keywordID, k.separatorID
FROM ((tblSearchWord sw
    INNER JOIN tblKeyword_link_searchWord kl ON sw.searchWordID = kl.searchWordID)
    INNER JOIN tblKeyword k ON kl.keywordID = k.keywordID)
    LEFT JOIN tblSeparator sep ON k.separatorID = sep.separatorID
WHERE sw.searchWord = [searchWord]
ORDER BY k.keyword, k.keywordID;

-- name: qryAllSearchWords()
SELECT searchWordID, searchWord
FROM tblSearchWord
ORDER BY searchWord, searchWordID;

-- name: qrySearchWordIDBySearchWord(searchWord T50)
SELECT searchWordID
FROM tblSearchWord
WHERE searchWord = [searchWord]
ORDER BY searchWordID;

-- name: qrySearchWordIDByKeywordIDSearchWordID(keywordID I, searchWordID I)
SELECT searchWordID
FROM tblKeyword_link_searchWord
WHERE keywordID = [keywordID] AND searchWordID = [searchWordID];

-- The counts that end the loops of a deletion. They join tblKeyword, so that the ID of a keyword
-- that is gone already counts for nothing.

-- name: qryCountCodeKeywordLinksByAppID(appID I)
SELECT count(*) AS linkCount
FROM ((tblClass cls INNER JOIN tblCode cd ON cls.classID = cd.classID)
    INNER JOIN tblKeyword k ON cd.keywordID = k.keywordID)
    INNER JOIN tblKeyword_link_searchWord kl ON k.keywordID = kl.keywordID
WHERE cls.appID = [appID];

-- name: qryCountCodeKeywordsByAppID(appID I)
SELECT count(*) AS keywordCount
FROM (tblClass cls INNER JOIN tblCode cd ON cls.classID = cd.classID)
    INNER JOIN tblKeyword k ON cd.keywordID = k.keywordID
WHERE cls.appID = [appID];

-- name: qryCountClassKeywordLinksByAppID(appID I)
SELECT count(*) AS linkCount
FROM (tblClass cls INNER JOIN tblKeyword k ON cls.keywordID = k.keywordID)
    INNER JOIN tblKeyword_link_searchWord kl ON k.keywordID = kl.keywordID
WHERE cls.appID = [appID];

-- name: qryCountClassKeywordsByAppID(appID I)
SELECT count(*) AS keywordCount
FROM tblClass cls INNER JOIN tblKeyword k ON cls.keywordID = k.keywordID
WHERE cls.appID = [appID];

-- name: qryCountCodeKeywordLinksByClassID(classID I)
SELECT count(*) AS linkCount
FROM (tblCode cd INNER JOIN tblKeyword k ON cd.keywordID = k.keywordID)
    INNER JOIN tblKeyword_link_searchWord kl ON k.keywordID = kl.keywordID
WHERE cd.classID = [classID];

-- name: qryCountCodeKeywordsByClassID(classID I)
SELECT count(*) AS keywordCount
FROM tblCode cd INNER JOIN tblKeyword k ON cd.keywordID = k.keywordID
WHERE cd.classID = [classID];
