-- Picks under a salary cap of $50,000: Group A lets a team select two, Group B none. Car 48 has
-- no group (Null) and car 24 the -1 of a blank choice: one block ahead of the groups. Car 9 is the
-- dearest of Group A, car 3 has no salary. A driver of the series is no pick in a league scored by
-- cars. Group (40) is among the columns but this report has no cell for it.
UPDATE leagues SET salary_cap = 50000 WHERE league_name = 'Sunday Cup  ';
UPDATE group_dm SET max_nmbr = 2 WHERE group_nmbr = 1;
UPDATE group_dm SET max_nmbr = 0 WHERE group_nmbr = 2;
UPDATE cars SET group_nmbr = 2, salary = 1200 WHERE car_txt = '11';
UPDATE cars SET group_nmbr = NULL, salary = 800 WHERE car_txt = '48';
UPDATE cars SET group_nmbr = -1, salary = 650 WHERE car_txt = '24';
UPDATE cars SET salary = 2500 WHERE car_txt = '9';
UPDATE cars SET salary = NULL WHERE car_txt = '3';
INSERT INTO cars (car_nmbr, car_txt, car_owner, car_make, sponsor, driver_name, race_type_nmbr, car_type_nmbr, group_nmbr, salary)
  VALUES (600, '17', 'Hall Racing', 'Falcon', 'Oil Co', 'Sam Hall', 1, 2, 1, 1750.5);
INSERT INTO report_columns (report_nmbr, column_nmbr, column_order) VALUES (12, 40, 6);
