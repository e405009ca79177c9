-- Stored queries on applications. Application 1, "Application Undefined", takes in what belongs to
-- no other.

-- name: qryAppIDUsingAppName(appName T255)
SELECT appID, appName
FROM tblApplication
WHERE appName = [appName]
ORDER BY appID;

-- name: qryApplicationRSByID(appID I)
SELECT appID, appName, appPath, appComment, appVersion, keywordID
FROM tblApplication
WHERE appID = [appID];

-- name: qryAppNameRS()
SELECT appID, appName
FROM tblApplication
ORDER BY appName, appID;

-- name: qryAppRSContainClass()
SELECT a.appID, a.appName
FROM tblApplication a
WHERE EXISTS (SELECT 1 FROM tblClass cls WHERE cls.appID = a.appID)
ORDER BY a.appName, a.appID;

-- name: qryAppNameByAppPath(appPath L)
SELECT appName, appID
FROM tblApplication
WHERE appPath = [appPath]
ORDER BY appID;

-- name: qryAppNameByID(appID I)
SELECT appName
FROM tblApplication
WHERE appID = [appID];

-- name: qryAppPathByID(appID I)
SELECT appPath
FROM tblApplication
WHERE appID = [appID];

-- name: qryAppCommentRSByID(appID I)
SELECT appComment
FROM tblApplication
WHERE appID = [appID];

-- The top level of the contents tree.
-- name: qryAppWithClassCount()
SELECT a.appID, a.appName,
    (SELECT count(*) FROM tblClass cls WHERE cls.appID = a.appID) AS classCount
FROM tblApplication a
WHERE a.appID > 1
ORDER BY a.appName, a.appID;

-- Application 1 always holds class 1, which alone is nothing to show.
-- name: qryUnAppWithCount()
SELECT a.appID, a.appName,
    (SELECT count(*) FROM tblClass cls WHERE cls.appID = 1 AND cls.classID > 1)
        + (SELECT count(*) FROM tblCode cd WHERE cd.classID = 1) AS countChild
FROM tblApplication a
WHERE a.appID = 1;

-- name: qryCountCodeByAppID(appID I)
SELECT count(*) AS codeCount
FROM tblCode cd INNER JOIN tblClass cls ON cd.classID = cls.classID
WHERE cls.appID = [appID];
