-- Stored queries on bookmarks, noise words and the window layout.

-- A class's own bookmark has no codeID and comes before those of its procedures.
-- name: qryFavorite()
SELECT f.appID, a.appName, f.classID, cls.className, f.codeID, cd.codeName
FROM ((tblFavorite f INNER JOIN tblClass cls ON f.classID = cls.classID)
    INNER JOIN tblApplication a ON f.appID = a.appID)
    LEFT JOIN tblCode cd ON f.codeID = cd.codeID
WHERE f.codeID IS NULL OR cd.codeID IS NOT NULL
ORDER BY a.appName, cls.className, f.classID, cd.codeName, f.codeID;

-- name: qryCommonWordRS()
SELECT commonWord
FROM tblCommonWord
ORDER BY commonWord;

-- name: qryCommonWordRSByWord(commonWord T255)
SELECT commonWord
FROM tblCommonWord
WHERE commonWord = [commonWord];

-- name: qryWindowSizeRS()
SELECT w_hID, tWidth, tHeight, tLeft, tTop, leftChildIndex, rightChildIndex, wrap, leftChildWidth,
    rightChildWidth, fContentPos, fIndexPos, fSearchPos, fBookmarkPos, lastCompactDay
FROM tblWindowSize
WHERE w_hID = 1;
