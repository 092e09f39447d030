-- Team heads with e-mail and phone lines: Blue Comets has no phone, and the Red Arrows have lost
-- their name, so their owner heads their table. Car 9 has a group number that names no group.
-- Season Points (9) is no column of this report: it takes no cell in any row.
INSERT INTO report_columns (report_nmbr, column_nmbr, column_order) VALUES (3, 38, 8), (3, 39, 9), (3, 9, 10);
UPDATE teams SET phone = NULL WHERE team_name = 'Blue Comets';
UPDATE teams SET team_name = '' WHERE team_name = 'Red Arrows';
UPDATE cars SET group_nmbr = -1, salary = 1500 WHERE car_txt = '9';
UPDATE team_car SET locked_salary = 950.75 WHERE car_nmbr IN (SELECT car_nmbr FROM cars WHERE car_txt = '6');
