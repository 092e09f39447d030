-- A driver of the same series joins the cars; the series' top bonus entry and the other series'
-- car stay out. Car 48 has neither salary nor group, car 9 a group number that names no group,
-- car 11 is of Group B with its own make and owner.
INSERT INTO cars (car_nmbr, car_txt, car_owner, car_make, sponsor, driver_name, race_type_nmbr, car_type_nmbr, group_nmbr, salary)
  VALUES (600, '17', 'Hall Racing', 'Falcon', 'Oil Co', 'Sam Hall', 1, 2, 3, 1750.5);
INSERT INTO cars (car_nmbr, car_txt, car_owner, car_make, sponsor, driver_name, race_type_nmbr, car_type_nmbr, group_nmbr, salary)
  VALUES (601, 'Top', '', '', '', 'Top Bonus', 1, 3, NULL, NULL);
UPDATE cars SET salary = NULL, group_nmbr = NULL WHERE car_txt = '48';
UPDATE cars SET group_nmbr = 9 WHERE car_txt = '9';
UPDATE cars SET group_nmbr = 2, car_make = 'Falcon', car_owner = 'Acme Racing', salary = 2250.75 WHERE car_txt = '11';
