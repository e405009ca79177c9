-- The two rows that every catalogue has. Deleting them empties them; they stay.
INSERT INTO tblApplication(appID, appName) VALUES (1, 'Application Undefined');
INSERT INTO tblClass(classID, className, appID, languageID)
VALUES (1, 'Class/Module Undefined', 1, 1);
