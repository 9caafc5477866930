CREATE TABLE public.camera (
    mac text NOT NULL COLLATE pg_catalog."C",
    runs bigint NOT NULL,
    last_begin_ms bigint,
    last_run uuid,
    last_outcome text,
    first_judged_ms bigint,
    first_day text,
    first_station text,
    first_batch text,
    first_firmware text,
    first_passed integer,
    last_judged_ms bigint,
    final_passed integer
);
CREATE TABLE public.finding (
    item text NOT NULL COLLATE pg_catalog."C",
    begin_ms bigint NOT NULL,
    run uuid NOT NULL,
    place integer NOT NULL,
    verdict text NOT NULL,
    message text NOT NULL,
    measurement text NOT NULL,
    value text NOT NULL,
    limits text NOT NULL
);
CREATE TABLE public.item_tally (
    day text NOT NULL COLLATE pg_catalog."C",
    station text NOT NULL COLLATE pg_catalog."C",
    batch text NOT NULL COLLATE pg_catalog."C",
    firmware text NOT NULL COLLATE pg_catalog."C",
    item text NOT NULL COLLATE pg_catalog."C",
    ran bigint NOT NULL,
    failed bigint NOT NULL,
    warned bigint NOT NULL
);
CREATE TABLE public.measurement (
    series bigint NOT NULL,
    begin_ms bigint NOT NULL,
    run uuid NOT NULL,
    place integer NOT NULL,
    number double precision,
    text text NOT NULL,
    "least" double precision,
    most double precision
);
CREATE TABLE public.record (
    run uuid NOT NULL,
    body bytea NOT NULL
);
CREATE TABLE public.run (
    begin_ms bigint NOT NULL,
    id uuid NOT NULL,
    offset_s integer NOT NULL,
    day text NOT NULL COLLATE pg_catalog."C",
    end_ms bigint NOT NULL,
    duration_us bigint NOT NULL,
    outcome text NOT NULL COLLATE pg_catalog."C",
    mac text NOT NULL COLLATE pg_catalog."C",
    serial text NOT NULL COLLATE pg_catalog."C",
    station text NOT NULL COLLATE pg_catalog."C",
    location text NOT NULL,
    batch text NOT NULL COLLATE pg_catalog."C",
    firmware text NOT NULL COLLATE pg_catalog."C",
    operator_name text NOT NULL,
    wifi_name text NOT NULL,
    link text NOT NULL,
    program_version text NOT NULL,
    reason text NOT NULL,
    failed_items integer NOT NULL,
    first_finding text NOT NULL
);
CREATE TABLE public.schema_step (
    number integer NOT NULL
);
CREATE TABLE public.series (
    id bigint NOT NULL,
    item text NOT NULL COLLATE pg_catalog."C",
    name text NOT NULL COLLATE pg_catalog."C",
    unit text NOT NULL
);
CREATE TABLE public.state (
    name text NOT NULL COLLATE pg_catalog."C",
    value text NOT NULL
);
CREATE TABLE public.tally (
    day text NOT NULL COLLATE pg_catalog."C",
    station text NOT NULL COLLATE pg_catalog."C",
    batch text NOT NULL COLLATE pg_catalog."C",
    firmware text NOT NULL COLLATE pg_catalog."C",
    runs bigint NOT NULL,
    passed bigint NOT NULL,
    failed bigint NOT NULL,
    stopped bigint NOT NULL,
    error bigint NOT NULL,
    duration_ms bigint NOT NULL,
    cameras bigint NOT NULL,
    first_passed bigint NOT NULL,
    final_passed bigint NOT NULL
);
CREATE TABLE public.unsent (
    begin_ms bigint NOT NULL,
    run uuid NOT NULL
);
INSERT INTO public.camera VALUES ('60:60:1F:0A:5F:2A', 1, 1795249800250, '0b5f6d0e-8f0a-4c57-9c1e-3a2f5d7b9e10', 'failed', 1795249800250, '2026-11-21', 'line-2-left', '2026-47', '1.2.3', 0, 1795249800250, 0);
INSERT INTO public.finding VALUES ('battery.info', 1795249800250, '0b5f6d0e-8f0a-4c57-9c1e-3a2f5d7b9e10', 2, 'failed', '获取电池信息成功', 'battery.voltage', '4.36', '3.6..4.35');
INSERT INTO public.item_tally VALUES ('2026-11-21', 'line-2-left', '2026-47', '1.2.3', 'battery.info', 1, 1, 0);
INSERT INTO public.item_tally VALUES ('2026-11-21', 'line-2-left', '2026-47', '1.2.3', 'battery.link', 1, 0, 0);
INSERT INTO public.item_tally VALUES ('2026-11-21', 'line-2-left', '2026-47', '1.2.3', 'camera.video', 1, 0, 0);
INSERT INTO public.item_tally VALUES ('2026-11-21', 'line-2-left', '2026-47', '1.2.3', 'log.version', 1, 0, 0);
INSERT INTO public.measurement VALUES (36063073004677, 1795249800250, '0b5f6d0e-8f0a-4c57-9c1e-3a2f5d7b9e10', 5, NULL, '1.2.3', NULL, NULL);
INSERT INTO public.measurement VALUES (94347080647162, 1795249800250, '0b5f6d0e-8f0a-4c57-9c1e-3a2f5d7b9e10', 1, 4.36, '', 3.6, 4.35);
INSERT INTO public.measurement VALUES (146724208568421, 1795249800250, '0b5f6d0e-8f0a-4c57-9c1e-3a2f5d7b9e10', 3, 25.34, '', NULL, 45);
INSERT INTO public.measurement VALUES (171452228391643, 1795249800250, '0b5f6d0e-8f0a-4c57-9c1e-3a2f5d7b9e10', 0, NULL, '0x000000000008001a', NULL, NULL);
INSERT INTO public.measurement VALUES (194014536352845, 1795249800250, '0b5f6d0e-8f0a-4c57-9c1e-3a2f5d7b9e10', 2, -250, '', NULL, NULL);
INSERT INTO public.measurement VALUES (259488463274075, 1795249800250, '0b5f6d0e-8f0a-4c57-9c1e-3a2f5d7b9e10', 4, NULL, '1.2.3.4', NULL, NULL);
INSERT INTO public.record VALUES ('0b5f6d0e-8f0a-4c57-9c1e-3a2f5d7b9e10', '\x000009327801a5564b8fdc4410bef32b467d02656cb55f3363df929556a000b944c38141a86db777adb5db831fbb09a391c805a1200590100740e271e1080845202e48fc1632bbf9177c356e7b1e3b6c408c565ab75ddd55f5d5575ff58285a28e4e59c06c6e8f0c77cc862c9427a9eade5896615bf7b91f383ce0dcb43d7e8b5b78825d2472590a162c589296f98528253659a66d3af898a5ea0ccb8b3449b1ca4584c58807f8b38e037e3bf08e03fb36be90c19b38089f8fd6e719de313e2c717c91cf0b25555db1e0ed058b9b52d469a1dec0929bbe3764698c27fcab65ae4d642dd20c27e1dc5df389650f116526c9f09d213b930f61d626609ea7b12c284829aaa69479ef324bf3b466816ab26cc8541ba4de53d5a26eaab78a32c6c6469119793d175943a9f0077cf39b706e09b684db5c5695382183cbaf7e5b7dfdfbd50f1f3efffeb3d5d347f7eece14b66b1f531d906af25096eb244bf95e232b7859305123e139a1621148318e030a52010d265475214b19137ee7b28cd388029b8baaa2777b896f1cb6c853fcd7f60c7791b7cd510b3cf0fc37c08ffd03b88372b52c1f9a6b8e5cc3fd004e979f3f5dfdfcedf30fbefceb8fef76a1bad31e35880aa56444fca0ac5e801b62ff4fb811061db56ef5bf993a2fb21ae50c5cd3194d67cae87f3335535d929dd180ac06d3c1cb8e39324d2cbc57d635df262a9a87bb370096aae426a22e58060aa3e27001580b7a244743863eba9710f5c10b4db2bdf8009ba6f19478d0f298425e22fb438dd0ed8f9ab244c76cf6e7d4d6fa00037ab175401f60db523ac29be323b243666a74e6c6c79f3f1d6d9cd89ee9b85b5e76fab50bb32a929a246a2acbaa65c9f5ae5d6b97e9eeb5ead5935f9f7df2454b41f06ff5e8c7d5479f3e7bfccd76c7ded1347cad2d50474010ed7f356e0239db695c9d0d72d755d48e098cbe75bb5d7badeb402e4832d1912fee5c879b284ba7988bcedd1934e85d784aab4299f503aa7a752a6c6f049589b8e778d20da51d8efd24897dc7f62d877bae330a93c9c4772c57bac2498484a58c92240ac3719c3896887de941217156fa3ed4ccb5364a95152726fce992fd93421fe4554b838ef9fd60a222bb6cab11fae1d57700a1a985bc1d67bbda8dcf1afd0e0e1d5e577620d797bd8d62539c6b5a8c0c3707bebe5e1cb4ded6097782b8e0a515fdf5e4de9bd363c7eae734159df1d04b463197c624e1c270236f6cf891250d47d889178f435f5a34d38b75af15183aecf2c9c7578f7fa1774d8d594c534b336bc8e699c00d0153796f06f3fd11436d49365be3820feddeaae37367b6c54daf372284a802f3b23829453ed574a0bb065fdf354aa81e843fa0bbcc7ab0689daca25399e38202e257e0aca0abc1dd234c63db713d2446439cb40043352b22fdcc5e155936a02b8c2e32a694346c239349cd96cb97fe069759f3bb');
INSERT INTO public.run VALUES (1795249800250, '0b5f6d0e-8f0a-4c57-9c1e-3a2f5d7b9e10', 3600, '2026-11-21', 1795249800731, 481250, 'failed', '60:60:1F:0A:5F:2A', 'KC0012345', 'line-2-left', 'Hall 3', '2026-47', '1.2.3', '王芳', 'Camera-5F2A', 'wifi', '1.0.3', 'battery.info', 1, 'battery.info');
INSERT INTO public.schema_step VALUES (1);
INSERT INTO public.series VALUES (171452228391643, 'camera.video', 'camera.statusWord', '');
INSERT INTO public.series VALUES (94347080647162, 'battery.info', 'battery.voltage', 'V');
INSERT INTO public.series VALUES (194014536352845, 'battery.info', 'battery.current', 'mA');
INSERT INTO public.series VALUES (146724208568421, 'battery.info', 'battery.temperature', '°C');
INSERT INTO public.series VALUES (259488463274075, 'battery.info', 'battery.softwareVersion', '');
INSERT INTO public.series VALUES (36063073004677, 'log.version', 'firmware', '');
INSERT INTO public.tally VALUES ('2026-11-21', 'line-2-left', '2026-47', '1.2.3', 1, 0, 1, 0, 0, 481, 1, 0, 0);
INSERT INTO public.unsent VALUES (1795249800250, '0b5f6d0e-8f0a-4c57-9c1e-3a2f5d7b9e10');
ALTER TABLE ONLY public.camera
    ADD CONSTRAINT camera_pkey PRIMARY KEY (mac);
ALTER TABLE ONLY public.finding
    ADD CONSTRAINT finding_pkey PRIMARY KEY (item, begin_ms, run, place);
ALTER TABLE ONLY public.item_tally
    ADD CONSTRAINT item_tally_pkey PRIMARY KEY (day, station, batch, firmware, item);
ALTER TABLE ONLY public.measurement
    ADD CONSTRAINT measurement_pkey PRIMARY KEY (series, begin_ms, run, place);
ALTER TABLE ONLY public.record
    ADD CONSTRAINT record_pkey PRIMARY KEY (run);
ALTER TABLE ONLY public.run
    ADD CONSTRAINT run_id_key UNIQUE (id);
ALTER TABLE ONLY public.run
    ADD CONSTRAINT run_pkey PRIMARY KEY (begin_ms, id);
ALTER TABLE ONLY public.schema_step
    ADD CONSTRAINT schema_step_pkey PRIMARY KEY (number);
ALTER TABLE ONLY public.series
    ADD CONSTRAINT series_pkey PRIMARY KEY (id);
ALTER TABLE ONLY public.state
    ADD CONSTRAINT state_pkey PRIMARY KEY (name);
ALTER TABLE ONLY public.tally
    ADD CONSTRAINT tally_pkey PRIMARY KEY (day, station, batch, firmware);
ALTER TABLE ONLY public.unsent
    ADD CONSTRAINT unsent_pkey PRIMARY KEY (begin_ms, run);
CREATE INDEX run_by_batch ON public.run USING btree (batch, begin_ms);
CREATE INDEX run_by_firmware ON public.run USING btree (firmware, begin_ms);
CREATE INDEX run_by_mac ON public.run USING btree (mac, begin_ms);
CREATE INDEX run_by_outcome ON public.run USING btree (outcome, begin_ms);
CREATE INDEX run_by_serial ON public.run USING btree (serial, begin_ms);
CREATE INDEX run_by_station ON public.run USING btree (station, begin_ms);
