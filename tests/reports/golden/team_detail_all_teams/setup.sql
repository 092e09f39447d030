-- Every column Team Detail knows, with the team's e-mail and phone rows (Blue Comets has no phone).
DELETE FROM report_columns WHERE report_nmbr = 5;
INSERT INTO report_columns (report_nmbr, column_nmbr, column_order) VALUES
  (5, 2, 1), (5, 3, 2), (5, 4, 3), (5, 5, 4), (5, 6, 5), (5, 7, 6), (5, 31, 7), (5, 32, 8), (5, 21, 9),
  (5, 9, 10), (5, 22, 11), (5, 35, 12), (5, 38, 13), (5, 39, 14);
UPDATE teams SET phone = NULL WHERE team_name = 'Blue Comets';
