-- Stored queries on authors, dates and their links. An owner is an application, a class or a
-- procedure (ownerTableID 1, 2, 3).

-- In the order in which they were linked.
-- name: qryAuthorsRSByOwner(ownerID I, ownerTableID I)
SELECT au.authorID, au.authorFName, au.authorMName, au.authorLName
FROM tbl_Author_Link al INNER JOIN tblAuthor au ON al.authorID = au.authorID
WHERE al.ownerID = [ownerID] AND al.ownerTableID = [ownerTableID]
ORDER BY al.rowid;

-- name: qryAuthorRSByID(authorID I)
SELECT authorID, authorFName, authorMName, authorLName
FROM tblAuthor
WHERE authorID = [authorID];

-- name: qryAuthorRSByName(fName T50, lName T50)
SELECT authorID, authorFName, authorMName, authorLName
FROM tblAuthor
WHERE authorFName = [fName] AND authorLName = [lName]
ORDER BY authorMName, authorID;

-- name: qryAuthorRSByFullName(fName T50, mName T50, lName T50)
SELECT authorID, authorFName, authorMName, authorLName
FROM tblAuthor
WHERE authorFName = [fName] AND authorMName = [mName] AND authorLName = [lName]
ORDER BY authorID;

-- name: qryAuthorIDByName(fName T50, mName T50, lName T50)
SELECT authorID
FROM tblAuthor
WHERE authorFName = [fName] AND authorMName = [mName] AND authorLName = [lName]
ORDER BY authorID;

-- name: qryAuthorsLinkRSByAuthorID(authorID I)
SELECT ownerID, ownerTableID, authorID
FROM tbl_Author_Link
WHERE authorID = [authorID]
ORDER BY ownerTableID, ownerID;

-- name: qryAuthorIDFromAuthorLink(ownerID I, authorID I, ownerTableID I)
SELECT authorID
FROM tbl_Author_Link
WHERE ownerID = [ownerID] AND authorID = [authorID] AND ownerTableID = [ownerTableID];

-- name: qryDateRSByOwner(ownerID I, ownerTableID I)
SELECT d.dDate, d.dateID
FROM tbl_date_link dl INNER JOIN tblDate d ON dl.dateID = d.dateID
WHERE dl.ownerID = [ownerID] AND dl.ownerTableID = [ownerTableID]
ORDER BY d.dDate, d.dateID;
